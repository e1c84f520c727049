#include "Projects/TabText/Preparation.h"

#include "Projects/TabText/TextParts.h"
#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/DraftReading.h"
#include "Projects/TabText/prepare/Steps.h"

#include <algorithm>
#include <array>

namespace TabText {

namespace {

using std::string;
using std::string_view;

// In the order in which they run: each finds what those before it have made plain.
constexpr std::array kSteps = std::to_array<PreparationStep>({
    {"ascii",
     "Text in UTF-8, UTF-16 or a code page to ASCII: dashes, strokes, quotes and boxes as such, letters "
     "without "
     "accents, the rest as \"?\" of the same width",
     true, RunAscii},
    {"markup",
     "What mails and web pages put around a text away: \"> \" before its lines, tags, \"&gt;\" and the like",
     true, RunMarkup},
    {"prose", "Hyphens of words and rules that would be read as a stave, or as a string of one, to \"=\"",
     true, RunProse},
    {"short",
     "Staves of two or three lines filled up where the place of their strings is known; staves with a blank "
     "line "
     "after each string closed up",
     true, RunShort},
    {"apart",
     "A blank line between a stave and what is glued to it: an annotation such as \"PM---|\", or another "
     "stave",
     true, RunApart},
    {"tuning", "The strings named as a tuning in the text says, where all of them are natural notes", true,
     RunTuning},
    {"bends", "Targets of bends and releases (\"7b9\", \"9r7\") blanked: nobody strikes them", true,
     RunBends},
    {"digits", "Numbers that were written without a gap (\"00\", \"1-11-1\") apart", true, RunDigits},
    {"parts", "Each of several parts (\"Gtr I\", \"Gtr II\"; a bass under a guitar) in a score of its own",
     false, RunParts},
    {"text",
     "Words that would be read as chords, rhythms, labels or time signatures: lyrics and prose blanked, "
     "remarks beside chords in small letters",
     false, RunText},
    {"rhythm",
     "Small letters for note lengths to large ones; strokes and fingers that would be counted as beats "
     "blanked; a barline where counts begin anew",
     false, RunRhythm},
    {"grid", "A rhythm line above staves whose notes stand at equal distances, where a line there has room",
     false, RunGrid},
});

// As often as steps may find something in what others made before they have to be at rest.
constexpr int kMostRounds = 6;

int NumberOf(const PreparationStep* step) {
    return static_cast<int>(step - kSteps.data());
}

// False when the steps do not come to rest.
bool RunToRest(Draft& draft, const std::vector<const PreparationStep*>& steps) {
    for (int round = 0; round < kMostRounds; ++round) {
        draft.ForgetChanged();
        for (const PreparationStep* step : steps) {
            // It looks at the bytes as they came.
            if (round > 0 && step->Run == RunAscii)
                continue;
            draft.StartStep(NumberOf(step));
            step->Run(draft);
        }
        if (!draft.HasChanged())
            return true;
    }
    return false;
}

std::vector<const PreparationStep*> InOrder(std::span<const PreparationStep* const> steps) {
    std::vector<const PreparationStep*> ordered(steps.begin(), steps.end());
    std::sort(ordered.begin(), ordered.end());
    ordered.erase(std::unique(ordered.begin(), ordered.end()), ordered.end());
    return ordered;
}

PreparedText Finish(const Draft& draft, const std::vector<const PreparationStep*>& steps) {
    PreparedText prepared{draft.GetText(), draft.GetMap(), {}, draft.GetChanges(kSteps)};
    for (const PreparationStep* step : steps)
        prepared.Steps.push_back({step, draft.CountChanged(NumberOf(step))});
    return prepared;
}

PreparedText PreparePart(string_view text, const string& part,
                         const std::vector<const PreparationStep*>& steps) {
    Draft draft(text);
    draft.ChoosePart(part);
    if (RunToRest(draft, steps))
        return Finish(draft, steps);
    return Finish(Draft(text), steps);
}

// The parts that the text shows once the steps before that of parts have run. Empty when it is not asked for.
std::vector<PartName> PartsOf(string_view text, const std::vector<const PreparationStep*>& steps) {
    const auto parts = std::find_if(steps.begin(), steps.end(),
                                    [](const PreparationStep* step) { return step->Run == RunParts; });
    if (parts == steps.end())
        return {};
    Draft draft(text);
    if (!RunToRest(draft, {steps.begin(), parts}))
        return {};
    const DraftReading reading(draft);
    return FindParts(reading.GetFile(), reading.GetAnalysis()).Names;
}

} // namespace

std::span<const PreparationStep> AllPreparationSteps() {
    return kSteps;
}

std::vector<const PreparationStep*> DefaultPreparationSteps() {
    std::vector<const PreparationStep*> steps;
    for (const PreparationStep& step : kSteps)
        if (step.IsOnByDefault)
            steps.push_back(&step);
    return steps;
}

const PreparationStep* FindPreparationStep(string_view name) {
    const auto* found = std::find_if(kSteps.begin(), kSteps.end(),
                                     [&](const PreparationStep& step) { return name == step.Name; });
    return found == kSteps.end() ? nullptr : found;
}

PreparedText Prepare(string_view text, std::span<const PreparationStep* const> steps) {
    return PreparePart(text, {}, InOrder(steps));
}

PreparedText Prepare(string_view text) {
    return Prepare(text, DefaultPreparationSteps());
}

std::vector<PreparedPart> PrepareParts(string_view text, std::span<const PreparationStep* const> steps) {
    const std::vector<const PreparationStep*> ordered = InOrder(steps);
    std::vector<PreparedPart> parts;
    for (const PartName& name : PartsOf(text, ordered))
        parts.push_back({name.Name, PreparePart(text, name.Key, ordered)});
    if (parts.empty())
        parts.push_back({{}, PreparePart(text, {}, ordered)});
    return parts;
}

std::vector<const char*> StepsThatWouldHelp(string_view text) {
    std::vector<const char*> names;
    for (const StepReport& report : Prepare(text).Steps)
        if (report.ChangedLines > 0)
            names.push_back(report.Step->Name);
    return names;
}

string ChangesText(const PreparedText& prepared) {
    string text;
    for (const LineChange& change : prepared.Changes) {
        const int original = change.OriginalLine >= 0 ? change.OriginalLine
                                                      : prepared.Map.ToOriginal(change.PreparedLine, 0).Line;
        string names;
        for (const PreparationStep* step : change.Steps)
            names += (names.empty() ? "" : ", ") + string(step->Name);
        text += "@ line " + std::to_string(original + 1) + ": " + names + "\n";
        if (change.OriginalLine >= 0)
            text += "-" + change.Before + "\n";
        if (change.PreparedLine >= 0)
            text += "+" + change.After + "\n";
    }
    return text;
}

} // namespace TabText
