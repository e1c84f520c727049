#include "Projects/Explain/Explanation.h"
#include "Projects/Score/Utf8.h"

#include <algorithm>
#include <set>

namespace Explain {

namespace {

using Score::ToUtf8;

constexpr std::size_t kNumberWidth = 5;

std::string Number(std::size_t number) {
    const std::string digits = std::to_string(number);
    return std::string(kNumberWidth - std::min(kNumberWidth, digits.size()), ' ') + digits + "  ";
}

std::string Coloured(const ExplainedLine& line) {
    std::string text;
    for (std::size_t column = 0; column < line.Text.size();) {
        std::size_t end = column;
        while (end < line.Text.size() && line.Marks[end] == line.Marks[column])
            ++end;
        const std::string stretch = ToUtf8(line.Text.substr(column, end - column));
        text +=
            line.Marks[column] == Recognised::Nothing
                ? stretch
                : "\x1b[" + std::string(NameOf(line.Marks[column]).TerminalStyle) + "m" + stretch + "\x1b[0m";
        column = end;
    }
    return text;
}

/// A sign below each character that was recognised; empty where there is none.
std::string Signs(const ExplainedLine& line) {
    std::string signs;
    for (const Recognised mark : line.Marks)
        signs += NameOf(mark).Sign;
    signs.erase(signs.find_last_not_of(' ') + 1);
    return signs;
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

} // namespace

std::string ExplanationText(const Explanation& explanation, bool hasColour) {
    const std::string indent(kNumberWidth + 2, ' ');
    std::string text;
    auto stave = explanation.Staves.begin();
    for (std::size_t index = 0; index < explanation.Lines.size(); ++index) {
        const ExplainedLine& line = explanation.Lines[index];
        text += Number(index + 1) + (hasColour ? Coloured(line) : ToUtf8(line.Text)) + "\n";
        if (const std::string signs = Signs(line); !hasColour && !signs.empty())
            text += indent + signs + "\n";
        for (const std::string& note : line.Notes)
            text += indent + "! " + ToUtf8(note) + "\n";
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
    return text + "\n" + Legend(explanation, hasColour);
}

} // namespace Explain
