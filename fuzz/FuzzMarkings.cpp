// What is read in the text of a tab beside the plug-in: its doubts, its markings, and these joined to the
// score of the same text, at each rhythm level (the first byte picks it). Properties: places lie in the text
// and in order, every mark belongs to a fret or a dead note, techniques stand once a note and in order,
// joining changes no pitch, and every export can be written.

#include "Projects/Fretline/score/TabConverter.h"
#include "Projects/Fretline/shell/FretlineOptions.h"
#include "Projects/Score/LilyPond.h"
#include "Projects/Score/Midi.h"
#include "Projects/Score/MusicXml.h"
#include "Projects/Score/ScoreModel.h"
#include "Projects/TabText/Doubts.h"
#include "Projects/TabText/MarkingSigns.h"
#include "Projects/TabText/Markings.h"
#include "Projects/TabText/SplitParts.h"
#include "Projects/TabText/TabReading.h"
#include "Shared/Utils/AsciiChars.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "fuzz/FuzzSupport.h"
#include "fuzz/SmallTemplate.h"
#include "tests/support/FakeOutput.h"
#include "tests/support/ScratchFolder.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <tuple>

namespace {

using FuzzSupport::Require;

constexpr Score::Layout kLayouts[] = {Score::Layout::Both, Score::Layout::Tab, Score::Layout::Notes};

void CheckDoubts(const TabText::TabReading& reading, const TabText::Markings& markings) {
    const std::vector<TabText::Doubt> doubts = TabText::FindDoubts(reading, markings);
    for (const TabText::Doubt& doubt : doubts) {
        Require(doubt.Line >= 0 && doubt.Line < reading.GetFile().GetLineCount(), "a doubt is about a line");
        Require(doubt.Column >= 0 && doubt.Column <= doubt.EndColumn, "a doubt has a place");
        Require(!doubt.What.empty() && !doubt.Try.empty(), "a doubt says something");
    }
    Require(std::is_sorted(doubts.begin(), doubts.end(),
                           [](const TabText::Doubt& a, const TabText::Doubt& b) {
                               return std::tie(a.Line, a.Column, a.Kind) < std::tie(b.Line, b.Column, b.Kind);
                           }),
            "doubts are in order of place");
}

void CheckSpan(const TabText::TabReading& reading, const TabText::SignSpan& span) {
    Require(span.Line >= 0 && span.Line < reading.GetFile().GetLineCount(), "a sign is in a line");
    Require(span.Column >= 0 && span.Column < span.EndColumn &&
                span.EndColumn <= reading.GetFile().GetLineLength(span.Line),
            "a sign is in the line's text");
}

void CheckMarks(const TabText::TabReading& reading, const TabText::Markings& markings) {
    for (const TabText::NoteMark& mark : markings.Notes) {
        const char note = reading.GetFile().GetChar(mark.NoteLine, mark.NoteColumn);
        const bool isDead = mark.What.Kind == Score::Technique::Dead;
        Require(mark.Bar < reading.GetBars().size(), "a mark lies in a bar");
        Require(isDead ? Nvr::Ascii::ToLower(note) == 'x' : Nvr::Ascii::IsDigit(note), "a mark has a note");
        Require(mark.Column < mark.EndColumn, "a sign has a place");
    }
    for (const TabText::BarMark& mark : markings.Bars)
        Require(mark.Bar < reading.GetBars().size() && mark.Repeats.Times >= 2, "a repeat lies in a bar");
    for (const TabText::BarMark& mark : markings.Bars)
        Require(std::adjacent_find(mark.Repeats.Endings.begin(), mark.Repeats.Endings.end(),
                                   std::greater_equal<>()) == mark.Repeats.Endings.end(),
                "the times of an ending ascend");
    for (const TabText::SignSpan& sign : markings.BarSigns)
        CheckSpan(reading, sign);
    for (const TabText::UnclearSign& sign : markings.Unclear)
        CheckSpan(reading, sign.Span);
    TabText::SignsOf(reading, markings);
}

// The struck notes of a score, without the dead ones.
std::vector<int> PitchesOf(const Score::ScoreModel& score) {
    std::vector<int> pitches;
    for (const Score::ModelBar& bar : score.Bars)
        for (const Score::ModelEvent& event : bar.Events)
            for (const Score::ModelNote& note : event.Notes)
                if (Score::FindTechnique(note.Techniques, Score::Technique::Dead) == nullptr)
                    pitches.push_back(note.Midi);
    return pitches;
}

void CheckTechniques(const Score::ScoreModel& score) {
    for (const Score::ModelBar& bar : score.Bars)
        for (const Score::ModelEvent& event : bar.Events)
            for (const Score::ModelNote& note : event.Notes)
                Require(std::adjacent_find(note.Techniques.begin(), note.Techniques.end(),
                                           [](const auto& a, const auto& b) { return a.Kind >= b.Kind; }) ==
                            note.Techniques.end(),
                        "each technique stands once, in order");
}

// What Score::ScoreParts asks of them.
void CheckParts(Score::ScoreParts parts) {
    for (const Score::ScoreModel& part : parts) {
        Require(part.Bars.size() == parts.front().Bars.size(), "parts have as many bars");
        Require(!part.Tuning.empty(), "a part has strings");
        for (std::size_t bar = 0; bar < part.Bars.size(); ++bar) {
            int end = 0;
            Require(part.Bars[bar].Length == parts.front().Bars[bar].Length, "bars are equally long");
            for (const Score::ModelEvent& event : part.Bars[bar].Events) {
                Require(event.Position >= end || part.HasRhythms, "events follow each other");
                end = event.Position + event.Duration;
                Require(end <= part.Bars[bar].Length, "no note reaches over the end of its bar");
            }
        }
    }
}

// Writes the parts in each form.
void WriteParts(Score::ScoreParts parts, Score::Layout layout) {
    Require(!Score::MusicXmlText(parts).empty(), "a marked score has a MusicXML form");
    FuzzSupport::CheckLilyPond(Score::LilyPondText(parts, "fuzz", layout, false));
    Require(!Score::MidiBytes(parts).empty(), "a marked score has a MIDI form");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const FuzzSupport::InputFile input(data + 1, size - 1);
    const TestSupport::ScratchFolder folder;
    const Nvr::String optionsPath = Fretline::FretlineOptions::PathIn(Nvr::String(folder.Path().c_str()));
    Fretline::FretlineOptions options(optionsPath);
    options.SetRhythmLevel(data[0] % 3);
    options.Save();
    const TabText::TabReading reading(input.Path(), folder.Path());
    const TabText::Markings markings = TabText::ReadMarkings(reading);
    CheckDoubts(reading, markings);
    CheckMarks(reading, markings);

    TestSupport::FakeOutput output;
    const std::unique_ptr<Nvr::TreeNodeRoot> tree(Nvr::TreeNode::LoadFromString(FuzzSupport::kSmallTemplate));
    const std::string target = FuzzSupport::FreshPath("score");
    try {
        Fretline::TabConverter converter(&output, &options);
        std::string why;
        if (converter.RunConversion(input.Path().c_str(), tree.get(), target.c_str()))
            if (std::optional<Score::ScoreModel> score = Score::ScoreModel::Read(*tree, why)) {
                const std::vector<int> before = PitchesOf(*score);
                TabText::JoinMarkings(reading, markings, *score);
                Require(PitchesOf(*score) == before, "joining changes no pitch");
                CheckTechniques(*score);
                const Score::Layout layout = kLayouts[size % std::size(kLayouts)];
                WriteParts(Score::AsParts(*score), layout);
                if (const TabText::SplitScore split = TabText::SplitParts(reading, *score);
                    !split.Parts.empty()) {
                    CheckParts(split.Parts);
                    WriteParts(split.Parts, layout);
                }
            }
    } catch (const std::out_of_range&) {
        // A text without a bar that can be read.
    }
    std::remove(target.c_str());
    Nvr::ClearNodeStringTable();
    return 0;
}
