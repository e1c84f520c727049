#include "tests/Projects/Fretline/stave/BarText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

namespace Fretline {

namespace {

// The frets of each item, line by line from the top: "12/3".
std::string FretsOf(const TabBar& bar) {
    std::string text;
    for (const auto& scoreBar : bar.GetScoreBars()) {
        for (const BarItem& item : scoreBar->m_Items) {
            text += text.empty() ? "" : " ";
            for (int string = bar.GetLineCount() - 1; string >= 0; --string) {
                const auto note = std::ranges::find(item.m_Notes, string, &TabNote::m_String);
                if (note != item.m_Notes.end())
                    text += std::to_string((note->m_Chrom2 - bar.GetTuning()[note->m_String]) / 2);
                text += string > 0 ? "/" : "";
            }
        }
    }
    return text;
}

// The rules for columns spelled out without any care for cost.
struct PlainColumn {
    int Width = 1;
    bool Single = false;
    bool ReachesLeft = false;
};

void AddPlainColumns(const std::string& line, std::map<int, PlainColumn>& columns) {
    const std::size_t end = line.size();
    for (std::size_t i = 0; i < end;) {
        std::size_t runEnd = i;
        int value = 0;
        bool tooBig = false;
        for (; runEnd < end && line[runEnd] != '-'; ++runEnd) {
            value = line[runEnd] == 'x' ? 23 : std::min(value * 10 + (line[runEnd] - '0'), 1000);
            tooBig = tooBig || value > 22;
        }
        if (runEnd == i) {
            ++i;
        } else if (tooBig) {
            for (; i < runEnd; ++i)
                columns[static_cast<int>(i)] = {1, true, false};
        } else {
            PlainColumn& column = columns[static_cast<int>(i)];
            if (!column.Single)
                column.Width = std::max(column.Width, static_cast<int>(runEnd - i));
            i += static_cast<std::size_t>(column.Width);
        }
    }
}

std::string PlainColumnsOf(const std::vector<std::string>& lines) {
    std::map<int, PlainColumn> columns;
    for (const std::string& line : lines)
        AddPlainColumns(line, columns);
    std::string text;
    for (auto it = columns.begin(); it != columns.end(); ++it) {
        const auto next = columns.find(it->first + 1);
        if (next != columns.end() && it->second.Width == 2) {
            next->second.ReachesLeft = true;
            continue;
        }
        std::string word = std::to_string(it->first);
        if (it->second.Width != 1)
            word += 'w' + std::to_string(it->second.Width);
        AppendWord(text, it->second.ReachesLeft ? word + '<' : word);
    }
    return text;
}

} // namespace

TEST(Columns, OfTwoLines) {
    const struct {
        const char *First, *Second, *Columns, *Frets, *Why;
    } rows[] = {
        {"--12--", "---3--", "3<", "12/3", "aligned on the right"},
        {"--12--", "--34--", "2 3", "1/3 2/4", "34 is no fret, so the digits stand alone on both lines"},
        {"--22--", "------", "2w2", "22/", "the highest fret read as one number"},
        {"--23--", "------", "2 3", "2/ 3/", "one above it"},
        {"--1x--", "------", "2 3", "1/ /", "a muted string in a run makes it no number"},
        {"-0012-", "------", "1w4", "12/", "leading noughts do not make a number big"},
        {"-0030-", "------", "1 2 3 4", "0/ 0/ 3/ 0/", "but they do not make it small either"},
        {"--12--", "-34---", "1 2", "/3 1/4", "digits that stand alone narrow the number above them"},
        {"--99--", "--12--", "2 3", "9/1 9/2", "columns that stay single part the number below them"},
        {"-11---", "--22--", "2w2<", "11/22", "overlapping numbers join"},
        {"-12---", "-3-4--", "1w2 3", "12/3 /4", "a widened column is read past on the next line"},
    };
    for (const auto& row : rows) {
        BarText text({row.First, row.Second});
        const TabBar& bar = text.ReadAt(0, 2);
        EXPECT_EQ(ColumnsOf(bar), row.Columns) << row.First << ' ' << row.Second << ": " << row.Why;
        EXPECT_EQ(FretsOf(bar), row.Frets) << row.First << ' ' << row.Second << ": " << row.Why;
    }
}

TEST(Columns, AgreeWithThePlainReading) {
    std::mt19937 random(20231);
    const std::string characters = "----001122399x";
    for (int round = 0; round < 300; ++round) {
        std::vector<std::string> lines(3, std::string(24, '-'));
        for (std::string& line : lines)
            for (char& c : line)
                c = characters[random() % characters.size()];
        BarText text(lines);
        const TabBar& bar = text.ReadAt(0, 3);
        ASSERT_EQ(ColumnsOf(bar), PlainColumnsOf(lines)) << lines[0] << '\n' << lines[1] << '\n' << lines[2];
    }
}

} // namespace Fretline
