#include "Projects/Fretline/text/TabAnalysis.h"

#include "Projects/Fretline/shell/FretlineOptions.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabStave.h"
#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace Fretline {
namespace {

using TestSupport::Stave;
using TestSupport::TabText;

TEST(TabAnalysis, IsEmptyWithoutStaves) {
    TabText text("3/4 Intro\nwords");
    TabAnalysis analysis(text.File);
    EXPECT_EQ(text.File.GetAnalysis(), &analysis);
    EXPECT_TRUE(analysis.GetStaves().empty());
    EXPECT_EQ(analysis.GetLabels().size(), 1U) << "labels are found in any line";
    EXPECT_FALSE(analysis.HasRhythms());
    EXPECT_EQ(analysis.ScoreBarCount(), 0);
}

TEST(TabAnalysis, NumbersScoreBarsFromOne) {
    const Nvr::String noPath;
    FretlineOptions options(noPath);
    options.SetRhythmLevel(kRhythmsAlways);
    // The one text bar of the first stave, with a label and chords, holds nine quavers, which fill three bars
    // of 2/4. The two of the second stave are a score bar each.
    TabText text("2/4 Intro\nAm\n" + Stave("-1-1-1-1-1-1-1-1-1-") + "\nOutro\n" + Stave("-1-|-1-"), &options);
    TabAnalysis analysis(text.File);
    for (TabBar* bar : analysis.GetReadableBars())
        bar->ReadBar(nullptr);
    for (const char* const why : {"counted", "asking again changes nothing"})
        ASSERT_EQ(analysis.ScoreBarCount(), 5) << why;
    EXPECT_TRUE(analysis.HasRhythms());
    const struct {
        const char* Label;
        int Length;
        bool HasChords;
    } expected[] = {{"Intro", 512, true},
                    {nullptr, 512, true},
                    {nullptr, 512, true},
                    {"Outro", 512, false},
                    {nullptr, 512, false}};
    for (int bar = 1; bar <= 5; ++bar) {
        const auto& [label, length, hasChords] = expected[bar - 1];
        EXPECT_EQ(analysis.BarLengthOf(bar), length) << bar;
        EXPECT_EQ(analysis.TimeSignatureOf(bar), analysis.GetTimeSignatures()[0].get()) << bar;
        EXPECT_EQ(analysis.BarHasChords(bar), hasChords) << bar;
        const RiffLabel* found = analysis.LabelOf(bar);
        ASSERT_EQ(found != nullptr, label != nullptr)
            << bar << ": only the first score bar of a text bar has its label";
        if (label != nullptr) {
            EXPECT_NE(std::string(found->GetText().View()).find(label), std::string::npos) << bar;
        }
    }
    for (const int bar : {0, -1, 6}) {
        EXPECT_THROW(analysis.BarLengthOf(bar), std::out_of_range);
        EXPECT_THROW(analysis.TimeSignatureOf(bar), std::out_of_range);
        EXPECT_THROW(analysis.LabelOf(bar), std::out_of_range);
        EXPECT_THROW(analysis.BarHasChords(bar), std::out_of_range);
    }
}

} // namespace
} // namespace Fretline
