// A text, prepared with steps that the first byte picks. Properties: the map leads from every place of the
// result to one of the original, columns ascending; what did not change is there byte for byte; and preparing
// the result with the same steps changes nothing. The same holds for each of its parts.

#include "Projects/TabText/Preparation.h"
#include "fuzz/FuzzSupport.h"

#include <algorithm>
#include <string>

namespace {

using FuzzSupport::Require;
using TabText::PreparedText;
using TabText::TextPlace;

/// As TabFile counts: CR, LF, CR LF and LF CR end a line.
std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> lines(1);
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (c != '\r' && c != '\n') {
            lines.back() += c;
            continue;
        }
        const char next = at + 1 < text.size() ? text[at + 1] : c;
        at += (next == '\r' || next == '\n') && next != c ? 1 : 0;
        lines.emplace_back();
    }
    return lines;
}

std::vector<const TabText::PreparationStep*> StepsOf(std::uint8_t choice) {
    if (choice % 4 == 0)
        return TabText::DefaultPreparationSteps();
    std::vector<const TabText::PreparationStep*> steps;
    unsigned bits = choice;
    for (const TabText::PreparationStep& step : TabText::AllPreparationSteps()) {
        if ((bits & 1U) != 0)
            steps.push_back(&step);
        bits = bits >> 1U | (bits & 1U) << 7U;
    }
    return steps;
}

void CheckMap(const PreparedText& prepared, const std::vector<std::string>& lines) {
    Require(prepared.Map.GetLineCount() == static_cast<int>(lines.size()), "each line has a place");
    for (int line = 0; line < prepared.Map.GetLineCount(); ++line) {
        TextPlace last = prepared.Map.ToOriginal(line, 0);
        Require(last.Line >= 0 && last.Column >= 0, "a place is one of a text");
        for (int column = 1; column <= static_cast<int>(lines[static_cast<std::size_t>(line)].size());
             ++column) {
            const TextPlace place = prepared.Map.ToOriginal(line, column);
            Require(place.Line == last.Line && place.Column >= last.Column, "columns ascend on one line");
            last = place;
        }
    }
}

void CheckUnchanged(const PreparedText& prepared, const std::vector<std::string>& lines,
                    const std::vector<std::string>& original) {
    std::vector<bool> isChanged(lines.size());
    for (const TabText::LineChange& change : prepared.Changes)
        if (change.PreparedLine >= 0)
            isChanged[static_cast<std::size_t>(change.PreparedLine)] = true;
    for (std::size_t line = 0; line < lines.size(); ++line)
        if (!isChanged[line]) {
            const TextPlace place = prepared.Map.ToOriginal(static_cast<int>(line), 0);
            Require(lines[line] == original[static_cast<std::size_t>(place.Line)],
                    "what did not change is as it was");
        }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const std::string_view text(reinterpret_cast<const char*>(data + 1), size - 1);
    const auto steps = StepsOf(data[0]);
    const PreparedText prepared = TabText::Prepare(text, steps);
    const std::vector<std::string> lines = LinesOf(prepared.Text);
    CheckMap(prepared, lines);
    CheckUnchanged(prepared, lines, LinesOf(text));
    Require(prepared.IsChanged() || prepared.Text == text, "no change, no difference");
    Require(TabText::Prepare(prepared.Text, steps).Text == prepared.Text, "once is enough");
    for (const TabText::PreparedPart& part : TabText::PrepareParts(text, steps)) {
        CheckMap(part.Text, LinesOf(part.Text.Text));
        const auto again = TabText::PrepareParts(part.Text.Text, steps);
        Require(again.size() == 1 && again[0].Text.Text == part.Text.Text, "a part is one part");
    }
    return 0;
}
