#include "Projects/ReferenceHost/Summary.h"

#include "Projects/ReferenceHost/Terminal.h"
#include "Projects/Score/Timeline.h"
#include "Projects/Score/TuningNames.h"
#include "Projects/Score/Utf8.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <map>

namespace ReferenceHost {

namespace {

using Score::Numbered;
using Score::ScoreModel;
using Score::ToUtf8;

constexpr std::size_t kNameWidth = 15;

std::string LabelLines(const ScoreModel& score) {
    std::string text;
    std::string name = "Labels";
    for (std::size_t bar = 0; bar < score.Bars.size(); ++bar) {
        for (const std::string& label : score.Bars[bar].Labels) {
            text +=
                SummaryLine(name, Numbered("bar ", static_cast<long long>(bar) + 1) + ": " + ToUtf8(label));
            name.clear();
        }
    }
    return text.empty() ? SummaryLine(name, "none") : text;
}

std::string TuningText(const ScoreModel& score) {
    const std::string name = Score::TuningName(score.Tuning);
    const std::string letters = Score::TuningLetters(score.Tuning);
    return name.empty() ? letters : name + " (" + letters + ")";
}

// The message with "#" for each number, which is what messages of one kind have in common.
std::string KindOf(const std::string& message) {
    std::string kind;
    for (const char c : message) {
        const bool isDigit = Nvr::Ascii::IsDigit(c);
        if (!isDigit || kind.empty() || kind.back() != '#')
            kind += isDigit ? '#' : c;
    }
    return kind;
}

} // namespace

std::string SummaryLine(const std::string& name, const std::string& text) {
    std::string padded = name;
    padded.resize(kNameWidth, ' ');
    return "  " + Terminal::Dim(padded) + text + "\n";
}

std::string SummaryText(const ScoreModel& score) {
    return SummaryLine("Instrument", ToUtf8(score.InstrumentName) + ", " +
                                         std::to_string(score.Tuning.size()) + " strings") +
           SummaryLine("Tuning", TuningText(score)) + SummaryLine("Bars", std::to_string(score.Bars.size())) +
           SummaryLine("Notes", std::to_string(Score::SoundingNotes(score).size())) +
           SummaryLine("Rhythms", score.HasRhythms ? "read" : "not read") +
           SummaryLine("Chord symbols", std::to_string(score.CountChordSymbols())) + LabelLines(score);
}

std::string PartsSummary(Score::ScoreParts parts) {
    if (parts.size() < 2)
        return {};
    std::string names;
    for (const ScoreModel& part : parts)
        names += (names.empty() ? "" : ", ") + ToUtf8(part.InstrumentName);
    return SummaryLine("Parts", names + ": together in MusicXML, MIDI and LilyPond");
}

std::string DoubtSummary(std::span<const TabText::Doubt> doubts, bool isFull) {
    constexpr std::size_t kShown = 3;
    if (doubts.empty())
        return {};
    const std::size_t shown = isFull ? doubts.size() : std::min(doubts.size(), kShown);
    std::string text =
        SummaryLine("Doubts", std::to_string(doubts.size()) +
                                  (shown < doubts.size() ? ", the first (--doubts tells all):" : ":"));
    for (const TabText::Doubt& doubt : doubts.first(shown)) {
        const std::string place = Numbered("line ", doubt.Line + 1) + Numbered(", column ", doubt.Column + 1);
        text += SummaryLine("", place + ": " + ToUtf8(doubt.What));
        if (isFull && !doubt.Try.empty())
            text += SummaryLine("", "  " + ToUtf8(doubt.Try));
    }
    return text;
}

std::string MessageSummary(const std::vector<std::string>& messages) {
    struct Kind {
        const std::string* First = nullptr;
        int Count = 0;
    };
    std::map<std::string, Kind> kinds;
    for (const std::string& message : messages) {
        Kind& kind = kinds[KindOf(message)];
        if (kind.Count++ == 0)
            kind.First = &message;
    }
    std::string text;
    std::string name = "Messages";
    for (const auto& [words, kind] : kinds) {
        const std::string more =
            kind.Count == 1 ? "" : Numbered(" (and ", kind.Count - 1) + " like it: --verbose)";
        text += SummaryLine(name, *kind.First + more);
        name.clear();
    }
    return text;
}

} // namespace ReferenceHost
