#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabStave.h"
#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>

namespace Fretline {
namespace {

using TestSupport::Repeat;
using TestSupport::Stave;
using TestSupport::TabText;

// Each text here takes well below a second when the cost is in proportion to it, and minutes or hours when
// some part of it is gone through once more for each of its lines, bars, labels or signatures.
constexpr std::chrono::seconds kFarTooLong(60);

class LargeText : public testing::Test {
protected:
    void TearDown() override { EXPECT_LT(std::chrono::steady_clock::now() - m_Start, kFarTooLong); }

    const TabAnalysis& Analyse(const std::string& text) {
        m_Text = std::make_unique<TabText>(text);
        m_Analysis = std::make_unique<TabAnalysis>(m_Text->File);
        return *m_Analysis;
    }
    TabText& Text() { return *m_Text; }

private:
    std::chrono::steady_clock::time_point m_Start = std::chrono::steady_clock::now();
    std::unique_ptr<TabText> m_Text;
    std::unique_ptr<TabAnalysis> m_Analysis;
};

constexpr std::size_t kMany = 100'000;

TEST_F(LargeText, ManyStavesBesideAVeryLongLine) {
    constexpr std::size_t kStaves = 50'000;
    const std::string stave = Stave("E|--5--|-7-|", 6) + '\n';
    const TabAnalysis& analysis = Analyse(Repeat(stave, kStaves) + std::string(1'000'000, '.'));
    EXPECT_EQ(analysis.GetStaves().size(), kStaves);
    EXPECT_EQ(analysis.GetReadableBars().size(), 2 * kStaves);
    EXPECT_TRUE(analysis.IsStaveLine(7 * 49'999));
    EXPECT_FALSE(analysis.IsStaveLine(7 * 49'999 - 1));
}

TEST_F(LargeText, ARunOfManyLinesWithAVeryLongOne) {
    const TabAnalysis& analysis = Analyse(Repeat("--\n", kMany) + std::string(1'000'000, '-'));
    EXPECT_EQ(analysis.GetStaves().size(), kMany / 6 + 1);
}

TEST_F(LargeText, ManyLinesThatAreDropped) {
    Analyse(Repeat("--\n", kMany) + Repeat(std::string(50, '-') + '\n', 200'000) + '\n' +
            Repeat("--\n\n", kMany));
    EXPECT_EQ(Text().Output.Messages.size(), 2 * kMany);
}

TEST_F(LargeText, ManyBarsWithASignatureAndALabelOverEach) {
    const std::string above = Repeat("2/4       ", kMany) + '\n' + Repeat("Riff      ", kMany) + '\n';
    const TabAnalysis& analysis = Analyse(above + Stave(Repeat("---------|", kMany), 6));
    ASSERT_EQ(analysis.GetReadableBars().size(), kMany);
    ASSERT_EQ(analysis.GetLabels().size(), kMany);
    EXPECT_FALSE(analysis.GetStaves()[0]->HasSingleBar());
    for (std::size_t i = 0; i < kMany; ++i) {
        const TabBar& bar = *analysis.GetReadableBars()[i];
        ASSERT_EQ(bar.GetTimeSignature(), analysis.GetTimeSignatures()[i].get());
        ASSERT_EQ(bar.GetLabel(), analysis.GetLabels()[i].get());
    }
    for (int column = 0; column < 10 * static_cast<int>(kMany); ++column)
        ASSERT_EQ(analysis.IsTimeSignatureAt(0, column), column % 10 < 3) << column;
}

TEST_F(LargeText, ManySignaturesOverOneBar) {
    const TabAnalysis& analysis = Analyse(Repeat("3/4\n", kMany) + Stave("-----|-----|-----", 6));
    ASSERT_EQ(analysis.GetTimeSignatures().size(), kMany);
    EXPECT_EQ(analysis.GetReadableBars()[0]->GetTimeSignature(), analysis.GetTimeSignatures()[0].get());
}

TEST_F(LargeText, ManyKeywordsOnALine) {
    EXPECT_EQ(Analyse(Repeat("riff-", kMany)).GetLabels().size(), 1U) << "all reach as far";
    EXPECT_EQ(Analyse(Repeat("riff ", kMany)).GetLabels().size(), kMany);
    const std::string gap(100'000, '\v');
    EXPECT_EQ(Analyse(gap + Repeat("riff-", kMany) + gap).GetLabels().size(), 1U)
        << "with much to leave out at the ends";
    EXPECT_EQ(Analyse(Repeat("riff ", kMany) + '\n' + Stave("-----", 6)).GetLabels().size(), kMany);
}

TEST_F(LargeText, ALineOfBarlines) {
    const TabAnalysis& analysis = Analyse(Stave("--" + std::string(1'000'000, ' ') + "--", 6));
    EXPECT_EQ(analysis.GetReadableBars().size(), 2U);
    EXPECT_EQ(analysis.GetStaves()[0]->GetBars().size(), 500'001U);
}

} // namespace
} // namespace Fretline
