#include "Projects/Tools/TemplateBuilder/Rules.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using TemplateBuilder::ApplyRule;

TEST(Rules, Compute) {
    const struct {
        const char* Rule;
        std::vector<std::string> Arguments;
        const char *Result, *Why;
    } rows[] = {
        {"count", {"80,90,100"}, "3", "entries of a list"},
        {"count", {""}, "0", "an empty list"},
        {"yes", {"yes"}, "true", "a mark"},
        {"yes", {""}, "false", "no mark"},
        {"no", {"no"}, "true", "the other way round"},
        {"twice", {"40"}, "80", "MIDI note to pitch"},
        {"diat", {"80"}, "23", "the low E of a guitar"},
        {"diat", {"90"}, "26", "its A"},
        {"diat", {"128"}, "37", "its high E"},
        {"diat", {"116"}, "34", "B flat, not A sharp"},
        {"diat", {"122"}, "35", "C sharp, not D flat"},
        {"diat", {"0"}, "0", "the lowest note"},
        {"half-height", {"6", "48"}, "120", "a guitar stave"},
        {"half-height", {"4", "33"}, "49", "rounded down"},
        {"half-height", {"0", "32"}, "0", "no lines, no height"},
        {"half-height-of-strings", {"56,66,76,86", "48"}, "72", "a bass stave"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ApplyRule(row.Rule, row.Arguments).value_or("nothing"), row.Result) << row.Why;
}

TEST(Rules, RefuseWhatDoesNotSuit) {
    const struct {
        const char* Rule;
        std::vector<std::string> Arguments;
        const char* Why;
    } rows[] = {
        {"thrice", {"1"}, "no such rule"},
        {"twice", {}, "too few arguments"},
        {"twice", {"1", "2"}, "too many"},
        {"twice", {"4x"}, "not a number"},
        {"twice", {""}, "an empty field"},
        {"twice", {"-4"}, "no pitch is negative"},
        {"twice", {"99999999999"}, "no number so large"},
        {"half-height", {"6,7", "48"}, "a list is no number of lines"},
        {"yes", {"maybe"}, "a mark is yes, no or empty"},
        {"yes", {"Yes"}, "in lower case"},
    };
    for (const auto& row : rows)
        EXPECT_FALSE(ApplyRule(row.Rule, row.Arguments).has_value()) << row.Why;
}
