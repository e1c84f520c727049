#include "Projects/Tools/TemplateBuilder/Rules.h"

#include "Projects/Fretline/score/Pitch.h"
#include "Projects/Tools/TemplateBuilder/Table.h"

#include <algorithm>
#include <charconv>

namespace TemplateBuilder {

namespace {

// Keeps every sum and product below within an int.
constexpr int kLargestArgument = 30000;

std::optional<int> ParseWholeNumber(const std::string& text) {
    int value = 0;
    const char* const end = text.data() + text.size();
    const auto [stopped, failure] = std::from_chars(text.data(), end, value);
    if (failure != std::errc() || stopped != end || value < 0 || value > kLargestArgument)
        return std::nullopt;
    return value;
}

// "yes" is true; "no" and an empty mark are false; anything else is a slip of the pen.
std::optional<bool> ParseMark(const std::string& mark) {
    if (mark == "yes")
        return true;
    if (mark == "no" || mark.empty())
        return false;
    return std::nullopt;
}

int HalfHeight(int lines, int separation) {
    return std::max(lines - 1, 0) * separation / 2;
}

} // namespace

std::optional<std::string> ApplyRule(std::string_view rule, const std::vector<std::string>& arguments) {
    if (rule == "count" && arguments.size() == 1)
        return std::to_string(SplitList(arguments[0], ',').size());
    if ((rule == "yes" || rule == "no") && arguments.size() == 1) {
        const std::optional<bool> mark = ParseMark(arguments[0]);
        return mark ? std::optional<std::string>(*mark == (rule == "yes") ? "true" : "false") : std::nullopt;
    }
    if (rule == "half-height-of-strings" && arguments.size() == 2)
        return ApplyRule("half-height", {std::to_string(SplitList(arguments[0], ',').size()), arguments[1]});

    std::vector<int> numbers;
    for (const std::string& argument : arguments) {
        const std::optional<int> number = ParseWholeNumber(argument);
        if (!number)
            return std::nullopt;
        numbers.push_back(*number);
    }
    if (rule == "twice" && numbers.size() == 1)
        return std::to_string(numbers[0] * 2);
    if (rule == "diat" && numbers.size() == 1)
        return std::to_string(Fretline::DiatonicStepOf(numbers[0] / Fretline::kChrom2PerSemitone));
    if (rule == "half-height" && numbers.size() == 2)
        return std::to_string(HalfHeight(numbers[0], numbers[1]));
    return std::nullopt;
}

} // namespace TemplateBuilder
