#include "Projects/Score/LilyPondWay.h"

#include "Projects/Score/LilyPondNotes.h"
#include "Projects/Score/Utf8.h"

namespace Score {

namespace {

std::string EndingText(const std::vector<int>& endings) {
    std::string text;
    for (const int number : endings)
        text += (text.empty() ? "" : " ") + std::to_string(number) + ".";
    return text;
}

// One line, for both what ends and what begins at the barline: a second one would take the first one's place.
std::string EndingsAt(const ScoreModel& score, std::size_t bar) {
    std::string commands;
    if (bar > 0 && score.EndsEnding(bar - 1))
        commands = "(volta #f)";
    if (bar < score.Bars.size() && score.BeginsEnding(bar))
        commands += (commands.empty() ? "(volta \"" : " (volta \"") +
                    EndingText(score.Bars[bar].Repeats.Endings) + "\")";
    return commands.empty() ? commands : "  \\set Score.repeatCommands = #'(" + commands + ")\n";
}

// All that leads away from the end of a bar stands in one instruction.
std::string JumpsOf(const ModelWay& way) {
    std::string text;
    const auto add = [&](const std::string& words) { text += (text.empty() ? "" : ", ") + words; };
    if (way.HasToCoda)
        add("To Coda");
    if (way.HasFine)
        add("Fine");
    if (way.To != Jump::None)
        add(JumpText(way));
    return text;
}

// Labels, segno and coda. LilyPond draws one mark at a time: several stand in one.
std::string MarkOf(const ModelBar& bar) {
    std::string signs;
    if (bar.Way.HasSegno)
        signs += " \\musicglyph \"scripts.segno\"";
    if (bar.Way.HasCoda)
        signs += " \\musicglyph \"scripts.coda\"";
    for (const std::string& label : bar.Labels)
        signs += " \\box " + QuotedText(ToUtf8(label));
    if (signs.empty())
        return {};
    if (bar.Labels.empty() && bar.Way.HasSegno != bar.Way.HasCoda)
        return bar.Way.HasSegno ? "  \\segnoMark 1\n" : "  \\codaMark 1\n";
    return "  \\sectionLabel \\markup {" + signs + " }\n";
}

} // namespace

std::string LilyPondBarStart(const ScoreModel& score, std::size_t bar) {
    const ModelBar& model = score.Bars[bar];
    std::string text;
    const bool isAfterRepeat = bar > 0 && score.Bars[bar - 1].Repeats.IsEnd;
    if (model.Repeats.IsStart)
        text += isAfterRepeat ? "  \\bar \":..:\"\n" : "  \\bar \".|:-|\"\n";
    text += EndingsAt(score, bar);
    if (model.Tempo > 0)
        text += Numbered("  \\tempo 4 = ", model.Tempo) + "\n";
    return text + MarkOf(model);
}

std::string LilyPondBarEnd(const ScoreModel& score, std::size_t bar) {
    const ModelBar& model = score.Bars[bar];
    std::string text;
    if (const std::string jumps = JumpsOf(model.Way); !jumps.empty())
        text += "  \\jump \"" + jumps + "\"\n";
    if (model.Repeats.IsEnd)
        text += "  \\bar \":|.\"\n";
    return bar + 1 == score.Bars.size() ? text + EndingsAt(score, bar + 1) : text;
}

} // namespace Score
