#include "Projects/Explain/Explanation.h"
#include "Projects/Score/Utf8.h"

#include <algorithm>
#include <set>

namespace Explain {

namespace {

using Score::ToUtf8;

constexpr std::size_t kNumberWidth = 5;

std::string Number(int number) {
    const std::string digits = number == 0 ? std::string() : std::to_string(number);
    return std::string(kNumberWidth - std::min(kNumberWidth, digits.size()), ' ') + digits + "  ";
}

constexpr const char* kNoStyle = "\x1b[0m";
constexpr const char* kDoubtStyle = "\x1b[4;31m";

std::string StyleOf(const ExplainedLine& line, std::size_t column) {
    const Recognised mark = line.Marks[column];
    const std::string style =
        mark == Recognised::Nothing ? "" : "\x1b[" + std::string(NameOf(mark).TerminalStyle) + "m";
    return line.IsDoubtful[column] ? style + kDoubtStyle : style;
}

std::string Coloured(const ExplainedLine& line) {
    std::string text;
    for (std::size_t column = 0; column < line.Text.size();) {
        const std::size_t end = line.EndOfStretch(column);
        const std::string stretch = ToUtf8(line.Text.substr(column, end - column));
        const std::string style = StyleOf(line, column);
        text += style.empty() ? stretch : style + stretch + kNoStyle;
        column = end;
    }
    return text;
}

std::string TrimEnd(std::string text) {
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

// A sign below each character that was recognised; empty where there is none.
std::string Signs(const ExplainedLine& line) {
    std::string signs;
    for (const Recognised mark : line.Marks)
        signs += NameOf(mark).Sign;
    return TrimEnd(std::move(signs));
}

// The same for what is doubtful.
std::string DoubtSigns(const ExplainedLine& line) {
    std::string signs;
    for (const bool isDoubtful : line.IsDoubtful)
        signs += isDoubtful ? kDoubtSign : ' ';
    return TrimEnd(std::move(signs));
}

std::string BelowLine(const ExplainedLine& line, const std::string& indent, bool hasColour) {
    std::string text;
    for (const std::string& signs : {Signs(line), DoubtSigns(line)})
        if (!hasColour && !signs.empty())
            text += indent + signs + "\n";
    for (const std::string& note : line.Notes)
        text += indent + "! " + ToUtf8(note) + "\n";
    for (const std::string& doubt : line.Doubts)
        text += indent + kDoubtSign + " " + ToUtf8(doubt) + "\n";
    return text;
}

std::string Legend(const Explanation& explanation, bool hasColour) {
    std::set<Recognised> used;
    for (const ExplainedLine& line : explanation.Lines)
        used.insert(line.Marks.begin(), line.Marks.end());
    std::string text;
    for (const Recognised kind : used) {
        if (kind == Recognised::Nothing)
            continue;
        const RecognisedName& name = NameOf(kind);
        const std::string entry = std::string(1, name.Sign) + " " + name.Name;
        text += "  " +
                (hasColour ? "\x1b[" + std::string(name.TerminalStyle) + "m" + entry + "\x1b[0m" : entry) +
                "\n";
    }
    return text;
}

std::string SignsOfTheText(const Explanation& explanation) {
    std::string text = explanation.Signs.empty() ? "" : "\nSigns of this text:\n";
    for (const TabText::SignRow& row : explanation.Signs)
        text += "  " + row.Shown + "  " + std::string(row.Meaning) + "\n";
    return text;
}

} // namespace

std::string ExplanationText(const Explanation& explanation, bool hasColour) {
    const std::string indent(kNumberWidth + 2, ' ');
    std::string text;
    auto stave = explanation.Staves.begin();
    for (std::size_t index = 0; index < explanation.Lines.size(); ++index) {
        const ExplainedLine& line = explanation.Lines[index];
        text += Number(line.Number) + (hasColour ? Coloured(line) : ToUtf8(line.Text)) + "\n";
        text += BelowLine(line, indent, hasColour);
        if (stave == explanation.Staves.end() || stave->LastLine != static_cast<int>(index))
            continue;
        text += indent + stave->Heading + "\n";
        for (const ExplainedBar& bar : stave->Bars) {
            text += indent + "  " + ToUtf8(bar.Heading) + "\n";
            for (const std::string& note : bar.Notes)
                text += indent + "    " + ToUtf8(note) + "\n";
        }
        ++stave;
    }
    return text + "\n" + Legend(explanation, hasColour) + SignsOfTheText(explanation);
}

} // namespace Explain
