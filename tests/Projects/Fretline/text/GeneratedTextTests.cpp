#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabStave.h"
#include "tests/Projects/Fretline/text/PlainAnalysis.h"
#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace Fretline {
namespace {

using TestSupport::TabText;
using namespace std::string_view_literals;

/// Makes texts that hold, in a few lines, as many of the shapes as possible that an analysis tells apart.
class TextMaker {
public:
    explicit TextMaker(unsigned seed) : m_Random(seed) {}

    std::string Make() {
        std::string text;
        for (int block = Roll(7) + 1; block > 0; --block) {
            const int kind = Roll(8);
            if (kind < 3)
                AddStave(text);
            else if (kind < 6)
                AddWords(text);
            else if (kind == 6)
                AddNoise(text);
            else
                text += '\n';
        }
        return text;
    }

private:
    int Roll(int sides) { return static_cast<int>(m_Random() % static_cast<unsigned>(sides)); }
    char OneOf(std::string_view choice) {
        return choice[static_cast<std::size_t>(Roll(static_cast<int>(choice.size())))];
    }

    /// Lines that have their barlines in common, and now and then a fault.
    void AddStave(std::string& text) {
        std::string pattern(static_cast<std::size_t>(Roll(3)), ' ');
        for (int length = Roll(40) + 2; length > 0; --length)
            pattern += OneOf(Roll(4) > 0 ? "--------"sv : "|| 7x:\0a"sv);
        const bool hasNames = Roll(2) == 0;
        const bool isCrooked = Roll(3) == 0;
        for (int line = Roll(9) + 3; line > 0; --line) {
            if (hasNames)
                text += OneOf("EADGBHCFedgx"sv);
            for (const char c : pattern)
                text += c == '-' && Roll(5) == 0 ? OneOf("0123x5E"sv) : c;
            if (isCrooked && Roll(2) == 0)
                text += OneOf("|- "sv);
            text += '\n';
        }
    }
    void AddWords(std::string& text) {
        constexpr std::string_view kWords[] = {
            "intro",  "Riff", "VERSE 1", "chorus", "rriff", "prechorus", "coda:",  "pattern",
            "verses", "solo", "fig.1",   "3/4",    "12/8",  "6/8/4",     "5/16",   "100/8",
            "1/3",    "/",    "D/F",     "a-b-c",  " ",     "   ",       "\v",     "\0"sv,
            "-",      "x",    "\f ",     "bridge", "outro", "4/4",       "      ", "         "};
        for (int count = Roll(12); count > 0; --count) {
            text += kWords[static_cast<std::size_t>(Roll(static_cast<int>(std::size(kWords))))];
            if (Roll(3) > 0)
                text += ' ';
        }
        text += '\n';
    }
    void AddNoise(std::string& text) {
        for (int length = Roll(60); length > 0; --length)
            text += OneOf("----- |/34riffsolo\0"sv);
        text += '\n';
    }

    std::mt19937 m_Random;
};

std::vector<PlainAnalysis::Signature> SignaturesOf(const TabAnalysis& analysis) {
    std::vector<PlainAnalysis::Signature> signatures;
    for (const auto& s : analysis.GetTimeSignatures())
        signatures.push_back(
            {s->m_Line, s->m_Column, s->m_StartColumn, s->m_EndColumn, s->m_Numerator, s->m_Denominator});
    return signatures;
}

std::vector<PlainAnalysis::Label> LabelsOf(const TabAnalysis& analysis) {
    std::vector<PlainAnalysis::Label> labels;
    for (const auto& label : analysis.GetLabels())
        labels.push_back(
            {label->m_Line, label->m_StartColumn, label->m_EndColumn, std::string(label->m_Keyword.View())});
    return labels;
}

void ExpectSameMessages(const TestSupport::FakeOutput& output, const PlainAnalysis& plain) {
    ASSERT_EQ(output.Messages.size(), plain.Messages.size());
    for (std::size_t i = 0; i < plain.Messages.size(); ++i) {
        const auto& [id, first, last] = plain.Messages[i];
        const std::string& text = output.Messages[i].Text;
        EXPECT_EQ(output.Messages[i].Id, id);
        EXPECT_NE(text.find(' ' + std::to_string(first) + ' '), std::string::npos) << text;
        if (id == 101) {
            EXPECT_NE(text.find(" to " + std::to_string(last) + ' '), std::string::npos) << text;
        }
    }
}

template <typename T>
int IndexOf(const std::vector<std::unique_ptr<T>>& list, const T* wanted) {
    const auto found =
        std::find_if(list.begin(), list.end(), [wanted](const auto& entry) { return entry.get() == wanted; });
    return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

void ExpectSameBar(const TabAnalysis& analysis, const TabBar& bar, const PlainAnalysis::Bar& plain) {
    EXPECT_EQ(bar.GetStartColumn(), plain.Start);
    EXPECT_EQ(bar.GetWidth(), plain.Width);
    EXPECT_EQ(bar.HasDash(), plain.HasDash);
    EXPECT_EQ(IndexOf(analysis.GetTimeSignatures(), bar.GetTimeSignature()), plain.TimeSignature);
    EXPECT_EQ(IndexOf(analysis.GetLabels(), bar.GetLabel()), plain.Label);
    if (plain.HasDash) {
        EXPECT_EQ(bar.GetBarLength(), plain.Length);
    }
}

void ExpectSameStave(const TabAnalysis& analysis, const TabStave& stave, const PlainAnalysis::Stave& plain) {
    EXPECT_EQ(stave.GetFirstLine(), plain.First);
    ASSERT_EQ(stave.GetLineCount(), plain.Count);
    EXPECT_EQ(stave.GetTuning(), plain.Tuning);
    ASSERT_LE(stave.GetBars().size(), plain.Bars.size());
    ASSERT_EQ(stave.GetBars().size(), stave.GetBarlines().size() + 1);
    for (std::size_t i = 0; i < stave.GetBarlines().size(); ++i) {
        EXPECT_EQ(stave.GetBarlines()[i].m_Column, plain.Barlines[i].Column);
        EXPECT_EQ(stave.GetBarlines()[i].m_Double == 1, plain.Barlines[i].Double);
    }
    for (std::size_t i = 0; i < stave.GetBars().size(); ++i)
        ExpectSameBar(analysis, *stave.GetBars()[i], plain.Bars[i]);
    for (std::size_t i = stave.GetBars().size(); i < plain.Bars.size(); ++i) {
        EXPECT_EQ(plain.Bars[i].Width, 0) << "only bars of no width are left out";
        EXPECT_EQ(plain.Bars[i].Label, -1);
    }
    const auto dashes = std::count_if(plain.Bars.begin(), plain.Bars.end(),
                                      [](const PlainAnalysis::Bar& bar) { return bar.HasDash; });
    EXPECT_EQ(stave.HasSingleBar(), dashes == 1);
}

void ExpectSameAnswers(const TabFile& file, const TabAnalysis& analysis, const PlainAnalysis& plain) {
    for (int line = 0; line < file.GetLineCount(); ++line) {
        EXPECT_EQ(analysis.IsStaveLine(line), plain.IsStaveLine(line));
        for (int column = 0; column < file.GetMaxLineLength(); ++column)
            EXPECT_EQ(analysis.IsTimeSignatureAt(line, column), plain.IsTimeSignatureAt(line, column))
                << line << ':' << column;
    }
}

TEST(GeneratedText, IsAnalysedAsIfEveryCellWereWalked) {
    constexpr unsigned kTexts = 1500;
    std::size_t staves = 0, labels = 0, changes = 0, labelledBars = 0, messages = 0;
    for (unsigned seed = 0; seed < kTexts; ++seed) {
        const std::string made = TextMaker(seed).Make();
        SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + made);
        TabText text(made);
        const TabAnalysis analysis(text.File);
        const PlainAnalysis plain(text.File);
        ExpectSameMessages(text.Output, plain);
        EXPECT_EQ(SignaturesOf(analysis), plain.Signatures);
        EXPECT_EQ(LabelsOf(analysis), plain.Labels);
        ASSERT_EQ(analysis.GetStaves().size(), plain.Staves.size());
        for (std::size_t i = 0; i < plain.Staves.size(); ++i)
            ExpectSameStave(analysis, *analysis.GetStaves()[i], plain.Staves[i]);
        ExpectSameAnswers(text.File, analysis, plain);
        ASSERT_FALSE(HasFailure());

        staves += plain.Staves.size();
        labels += plain.Labels.size();
        messages += plain.Messages.size();
        for (const PlainAnalysis::Stave& stave : plain.Staves)
            for (const PlainAnalysis::Bar& bar : stave.Bars) {
                changes += bar.TimeSignature > 0 ? 1U : 0U;
                labelledBars += bar.Label >= 0 ? 1U : 0U;
            }
    }
    // Texts in which nothing is found would agree about anything.
    EXPECT_GT(staves, kTexts);
    EXPECT_GT(labels, kTexts);
    EXPECT_GT(messages, kTexts);
    EXPECT_GT(changes, kTexts / 10);
    EXPECT_GT(labelledBars, kTexts / 10);
}

} // namespace
} // namespace Fretline
