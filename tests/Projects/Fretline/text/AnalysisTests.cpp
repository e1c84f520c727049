#include "Projects/Fretline/text/TabAnalysis.h"

#include "Projects/Fretline/shell/FretlineOptions.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabStave.h"
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

/// A text whose rhythms are always taken from the spacing, so that a stave without barlines gives several
/// score bars, and whose bars have been read.
struct ReadText {
    explicit ReadText(const std::string& text) : m_Text(text, WithRhythms()), Analysis(m_Text.File) {
        for (TabBar* bar : Analysis.GetReadableBars())
            bar->ReadBar(nullptr);
        Count = Analysis.ScoreBarCount();
    }

private:
    const FretlineOptions* WithRhythms() {
        m_Options.SetRhythmLevel(kRhythmsAlways);
        return &m_Options;
    }

    Nvr::String m_NoPath;
    FretlineOptions m_Options{m_NoPath};
    TabText m_Text;

public:
    TabAnalysis Analysis;
    int Count = 0;
};

/// The one text bar of the first stave, with a label and chords, holds nine quavers, which fill three bars of
/// 2/4. The two of the second stave are a score bar each.
const std::string kTwoStaves =
    "2/4 Intro\nAm\n" + Stave("-1-1-1-1-1-1-1-1-1-") + "\nOutro\n" + Stave("-1-|-1-");

TEST(TabAnalysis, NumbersScoreBarsFromOne) {
    ReadText text(kTwoStaves);
    ASSERT_EQ(text.Analysis.GetReadableBars().size(), 3U);
    ASSERT_EQ(text.Analysis.GetReadableBars()[0]->ScoreBarCount(), 3);
    ASSERT_EQ(text.Count, 5);
    EXPECT_EQ(text.Analysis.ScoreBarCount(), 5) << "asking again changes nothing";
    EXPECT_TRUE(text.Analysis.HasRhythms());

    const struct {
        const char* Label;
        int Length;
        bool HasChords;
    } expected[] = {{"Intro", 512, true},
                    {nullptr, 512, true},
                    {nullptr, 512, true},
                    {"Outro", 512, false},
                    {nullptr, 512, false}};
    for (int bar = 1; bar <= text.Count; ++bar) {
        const auto& [label, length, hasChords] = expected[bar - 1];
        EXPECT_EQ(text.Analysis.BarLengthOf(bar), length) << bar;
        EXPECT_EQ(text.Analysis.TimeSignatureOf(bar), text.Analysis.GetTimeSignatures()[0].get()) << bar;
        EXPECT_EQ(text.Analysis.BarHasChords(bar), hasChords) << bar;
        const RiffLabel* found = text.Analysis.LabelOf(bar);
        ASSERT_EQ(found != nullptr, label != nullptr)
            << bar << ": only the first score bar of a text bar has its label";
        if (label != nullptr) {
            EXPECT_NE(std::string(found->GetText().View()).find(label), std::string::npos) << bar;
        }
    }
}

TEST(TabAnalysis, RaisesForAScoreBarThatItDidNotNumber) {
    ReadText text(kTwoStaves);
    for (const int bar : {0, -1, 6}) {
        EXPECT_THROW(text.Analysis.BarLengthOf(bar), std::out_of_range);
        EXPECT_THROW(text.Analysis.TimeSignatureOf(bar), std::out_of_range);
        EXPECT_THROW(text.Analysis.LabelOf(bar), std::out_of_range);
        EXPECT_THROW(text.Analysis.BarHasChords(bar), std::out_of_range);
    }
}

} // namespace
} // namespace Fretline
