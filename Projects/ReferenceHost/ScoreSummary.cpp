#include "Projects/ReferenceHost/ScoreSummary.h"

#include "Projects/ReferenceHost/Terminal.h"
#include "Projects/Score/Utf8.h"

namespace ReferenceHost {

namespace {

using Score::Numbered;
using Score::ToUtf8;

std::string Line(const char* name, const std::string& value) {
    constexpr std::size_t kNameWidth = 15;
    std::string padded = name;
    padded.resize(kNameWidth, ' ');
    return "  " + Terminal::Dim(padded) + value + "\n";
}

std::string LabelLines(const Score::ScoreModel& score) {
    std::string text;
    const char* name = "Labels";
    for (std::size_t bar = 0; bar < score.Bars.size(); ++bar) {
        for (const std::string& label : score.Bars[bar].Labels) {
            text += Line(name, Numbered("bar ", static_cast<long long>(bar) + 1) + ": " + ToUtf8(label));
            name = "";
        }
    }
    return text.empty() ? Line(name, "none") : text;
}

} // namespace

std::string SummaryText(const Score::ScoreModel& score) {
    return Line("Instrument",
                ToUtf8(score.InstrumentName) + ", " + std::to_string(score.Tuning.size()) + " strings") +
           Line("Stave type", ToUtf8(score.StaveTypeName)) + Line("Bars", std::to_string(score.Bars.size())) +
           Line("Notes", std::to_string(score.CountNotes())) +
           Line("Rhythms", score.HasRhythms ? "read" : "not read") +
           Line("Chord symbols", std::to_string(score.CountChordSymbols())) + LabelLines(score);
}

} // namespace ReferenceHost
