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

using TestSupport::TabText;

/// Each text here takes well below a second when the cost is in proportion to it, and minutes or hours when
/// some part of it is gone through once more for each of its lines, bars, labels or signatures.
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

std::string Repeat(const std::string& text, int count) {
    std::string repeated;
    for (int i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

std::string Stave(const std::string& line) {
    return Repeat(line + '\n', 6);
}

constexpr std::size_t kMany = 100'000;
constexpr int kManyAsInt = static_cast<int>(kMany);

TEST_F(LargeText, ManyStavesBesideAVeryLongLine) {
    constexpr std::size_t kStaves = 50'000;
    const std::string stave = Stave("E|--5--|-7-|") + '\n';
    const TabAnalysis& analysis = Analyse(Repeat(stave, kStaves) + std::string(1'000'000, '.'));
    EXPECT_EQ(analysis.GetStaves().size(), kStaves);
    EXPECT_EQ(analysis.GetReadableBars().size(), 2 * kStaves);
    EXPECT_TRUE(analysis.IsStaveLine(7 * 49'999));
    EXPECT_FALSE(analysis.IsStaveLine(7 * 49'999 - 1));
}

TEST_F(LargeText, ARunOfManyLinesWithAVeryLongOne) {
    const TabAnalysis& analysis = Analyse(Repeat("--\n", kManyAsInt) + std::string(1'000'000, '-'));
    EXPECT_EQ(analysis.GetStaves().size(), kMany / 6 + 1);
}

TEST_F(LargeText, ManyLinesThatAreDropped) {
    Analyse(Repeat("--\n", kManyAsInt) + Repeat(std::string(50, '-') + '\n', 200'000) + '\n' +
            Repeat("--\n\n", kManyAsInt));
    EXPECT_EQ(Text().Output.Messages.size(), 2 * kMany);
}

TEST_F(LargeText, ManyBarsWithASignatureAndALabelOverEach) {
    const std::string above =
        Repeat("2/4       ", kManyAsInt) + '\n' + Repeat("Riff      ", kManyAsInt) + '\n';
    const TabAnalysis& analysis = Analyse(above + Stave(Repeat("---------|", kManyAsInt)));
    ASSERT_EQ(analysis.GetReadableBars().size(), kMany);
    ASSERT_EQ(analysis.GetLabels().size(), kMany);
    EXPECT_FALSE(analysis.GetStaves()[0]->HasSingleBar());
    for (std::size_t i = 0; i < kMany; ++i) {
        const TabBar& bar = *analysis.GetReadableBars()[i];
        ASSERT_EQ(bar.GetTimeSignature(), analysis.GetTimeSignatures()[i].get());
        ASSERT_EQ(bar.GetLabel(), analysis.GetLabels()[i].get());
        ASSERT_FALSE(analysis.GetStaves()[0]->HasSingleBar());
    }
    const auto covered = [&analysis](int column) { return analysis.IsTimeSignatureAt(0, column); };
    for (int column = 0; column < 10 * kManyAsInt; ++column)
        ASSERT_EQ(covered(column), column % 10 < 3) << column;
}

TEST_F(LargeText, ManySignaturesOverOneBar) {
    const TabAnalysis& analysis = Analyse(Repeat("3/4\n", kManyAsInt) + Stave("-----|-----|-----"));
    ASSERT_EQ(analysis.GetTimeSignatures().size(), kMany);
    EXPECT_EQ(analysis.GetReadableBars()[0]->GetTimeSignature(), analysis.GetTimeSignatures()[0].get());
}

TEST_F(LargeText, ManyKeywordsOnALine) {
    EXPECT_EQ(Analyse(Repeat("riff-", kManyAsInt)).GetLabels().size(), 1U) << "all reach as far";
    EXPECT_EQ(Analyse(Repeat("riff ", kManyAsInt)).GetLabels().size(), kMany);
    const std::string gap(100'000, '\v');
    EXPECT_EQ(Analyse(gap + Repeat("riff-", kManyAsInt) + gap).GetLabels().size(), 1U)
        << "with much to leave out at the ends";
    EXPECT_EQ(Analyse(Repeat("riff ", kManyAsInt) + '\n' + Stave("-----")).GetLabels().size(), kMany);
}

TEST_F(LargeText, ALineOfBarlines) {
    const TabAnalysis& analysis = Analyse(Stave("--" + std::string(1'000'000, ' ') + "--"));
    EXPECT_EQ(analysis.GetReadableBars().size(), 2U);
    EXPECT_EQ(analysis.GetStaves()[0]->GetBars().size(), 500'001U);
}

} // namespace
} // namespace Fretline
