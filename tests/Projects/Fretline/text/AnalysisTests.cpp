#include "Projects/Fretline/text/TabAnalysis.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace Fretline {
namespace {

using TestSupport::TabText;

std::string Stave(const std::string& line) {
    return line + '\n' + line + '\n' + line + '\n' + line + '\n';
}

TEST(TabAnalysis, IsEmptyWithoutStaves) {
    TabText text("3/4 Intro\nwords");
    TabAnalysis analysis(text.File);
    EXPECT_EQ(text.File.GetAnalysis(), &analysis);
    EXPECT_TRUE(analysis.GetStaves().empty());
    EXPECT_TRUE(analysis.GetReadableBars().empty());
    EXPECT_TRUE(analysis.GetTimeSignatures().empty());
    EXPECT_EQ(analysis.GetLabels().size(), 1U) << "labels are found in any line";
    EXPECT_FALSE(analysis.HasRhythms());
    EXPECT_FALSE(analysis.IsStaveLine(0));
    EXPECT_EQ(analysis.ScoreBarCount(), 0);
}

TEST(TabAnalysis, ListsReadableBarsStaveByStave) {
    TabText text(Stave("E|-|xx|--") + "\n" + Stave("---"));
    const TabAnalysis analysis(text.File);
    ASSERT_EQ(analysis.GetStaves().size(), 2U);
    const auto& first = analysis.GetStaves()[0]->GetBars();
    const auto& second = analysis.GetStaves()[1]->GetBars();
    const std::vector<TabBar*> expected = {first[1].get(), first[3].get(), second[0].get()};
    EXPECT_EQ(analysis.GetReadableBars(), expected);
}

TEST(TabAnalysis, KnowsTheLinesOfItsStaves) {
    TabText text("title\n" + Stave("-----") + "words\n" + Stave("-----") + Stave("-----") + "\n");
    const TabAnalysis analysis(text.File);
    const std::string expected = ".****.********..";
    ASSERT_EQ(text.File.GetLineCount(), static_cast<int>(expected.size()));
    for (int line = 0; line < text.File.GetLineCount(); ++line)
        EXPECT_EQ(analysis.IsStaveLine(line), expected[static_cast<std::size_t>(line)] == '*') << line;
}

} // namespace
} // namespace Fretline
