#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Shared/Utils/AsciiChars.h"
#include "tests/Projects/Fretline/text/PlainAnalysis.h"
#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>

namespace Fretline {
namespace {

using TestSupport::TabText;
using namespace std::string_view_literals;

// Makes texts that hold, in a few lines, as many of the shapes as possible that an analysis tells apart.
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

    // Lines that have their barlines in common, and now and then a fault.
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

// What was found beside the staves, a line each.
std::string TextOf(const TabAnalysis& analysis, const TestSupport::FakeOutput& output) {
    std::ostringstream text;
    for (const auto& message : output.Messages) {
        text << message.Id;
        for (std::size_t i = 1; i < message.Text.size(); ++i)
            if (const char c = message.Text[i]; Nvr::Ascii::IsDigit(c))
                text << (message.Text[i - 1] == ' ' ? " " : "") << c;
        text << '\n';
    }
    for (const auto& s : analysis.GetTimeSignatures())
        text << s->m_Line << ':' << s->m_Column << ' ' << s->m_StartColumn << '-' << s->m_EndColumn << ' '
             << s->m_Numerator << '/' << s->m_Denominator << '\n';
    for (const auto& label : analysis.GetLabels())
        text << label->m_Line << ':' << label->m_StartColumn << '-' << label->m_EndColumn << ' '
             << label->m_Keyword.View() << '\n';
    return text.str();
}

std::string TextOf(const PlainAnalysis& plain) {
    std::ostringstream text;
    for (const std::string& message : plain.Messages)
        text << message << '\n';
    for (const auto& s : plain.Signatures)
        text << s.Line << ':' << s.Column << ' ' << s.Start << '-' << s.End << ' ' << s.Numerator << '/'
             << s.Denominator << '\n';
    for (const auto& label : plain.Labels)
        text << label.Line << ':' << label.Start << '-' << label.End << ' ' << label.Keyword << '\n';
    return text.str();
}

template <typename T>
int IndexOf(const std::vector<std::unique_ptr<T>>& list, const T* wanted) {
    const auto found =
        std::find_if(list.begin(), list.end(), [wanted](const auto& entry) { return entry.get() == wanted; });
    return found == list.end() ? -1 : static_cast<int>(found - list.begin());
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
    int dashes = 0;
    for (std::size_t i = 0; i < plain.Bars.size(); ++i) {
        const PlainAnalysis::Bar& expected = plain.Bars[i];
        dashes += expected.HasDash ? 1 : 0;
        const bool isLeftOut = i >= stave.GetBars().size();
        if (isLeftOut) {
            EXPECT_TRUE(expected.Width == 0 && expected.Label == -1) << "only bars of no width are left out";
            continue;
        }
        const TabBar& bar = *stave.GetBars()[i];
        EXPECT_EQ(bar.GetStartColumn(), expected.Start);
        EXPECT_EQ(bar.GetWidth(), expected.Width);
        EXPECT_EQ(bar.HasDash(), expected.HasDash);
        EXPECT_EQ(IndexOf(analysis.GetTimeSignatures(), bar.GetTimeSignature()), expected.TimeSignature);
        EXPECT_EQ(IndexOf(analysis.GetLabels(), bar.GetLabel()), expected.Label);
        EXPECT_TRUE(!expected.HasDash || bar.GetBarLength() == expected.Length);
    }
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
        EXPECT_EQ(TextOf(analysis, text.Output), TextOf(plain));
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
