#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Shared/Utils/AsciiChars.h"
#include "tests/Projects/Fretline/text/PlainAnalysis.h"
#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
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

template <typename T>
int IndexOf(const std::vector<std::unique_ptr<T>>& list, const T* wanted) {
    const auto found = std::ranges::find(list, wanted, &std::unique_ptr<T>::get);
    return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

void PrintMessages(std::ostream& text, const TestSupport::FakeOutput& output) {
    for (const auto& message : output.Messages) {
        text << "message " << message.Id;
        for (std::size_t i = 1; i < message.Text.size(); ++i)
            if (const char c = message.Text[i]; Nvr::Ascii::IsDigit(c))
                text << (message.Text[i - 1] == ' ' ? " " : "") << c;
        text << '\n';
    }
}

void PrintStave(std::ostream& text, const TabAnalysis& analysis, const TabStave& stave) {
    text << "stave " << stave.GetFirstLine() << '+' << stave.GetLineCount();
    for (const int pitch : stave.GetTuning())
        text << ' ' << pitch;
    text << (stave.HasSingleBar() ? " single\n" : "\n");
    const auto& bars = stave.GetBars();
    std::size_t count = bars.size();
    ASSERT_EQ(count, stave.GetBarlines().size() + 1);
    for (std::size_t i = 0; i + 1 < count; ++i) {
        const TabBarline& barline = stave.GetBarlines()[i];
        EXPECT_EQ(barline.m_Column, bars[i]->GetStartColumn() + bars[i]->GetWidth());
        EXPECT_EQ(barline.m_Column + barline.m_Double + 1, bars[i + 1]->GetStartColumn());
    }
    while (bars[count - 1]->GetWidth() == 0 && bars[count - 1]->GetLabel() == nullptr)
        --count;
    for (std::size_t i = 0; i < count; ++i)
        text << "bar " << bars[i]->GetStartColumn() << '+' << bars[i]->GetWidth() << " time "
             << IndexOf(analysis.GetTimeSignatures(), bars[i]->GetTimeSignature()) << " label "
             << IndexOf(analysis.GetLabels(), bars[i]->GetLabel()) << " length "
             << (bars[i]->HasDash() ? bars[i]->GetBarLength() : 0) << '\n';
}

// As AnalysePlainly gives it.
std::string TextOf(const TabAnalysis& analysis, const TabText& tab) {
    std::ostringstream text;
    PrintMessages(text, tab.Output);
    for (const auto& s : analysis.GetTimeSignatures())
        text << "time " << s->m_Line << ':' << s->m_Column << ' ' << s->m_Numerator << '/' << s->m_Denominator
             << '\n';
    for (const auto& label : analysis.GetLabels())
        text << "label " << label->m_Line << ':' << label->m_StartColumn << '-' << label->m_EndColumn << ' '
             << label->m_Keyword.View() << '\n';
    for (const auto& stave : analysis.GetStaves())
        PrintStave(text, analysis, *stave);
    for (int line = 0; line < tab.File.GetLineCount(); ++line) {
        for (int column = 0; column < tab.File.GetMaxLineLength(); ++column)
            text << (analysis.IsTimeSignatureAt(line, column) ? '/' : '.');
        text << (analysis.IsStaveLine(line) ? " in a stave\n" : "\n");
    }
    return text.str();
}

TEST(GeneratedText, IsAnalysedAsIfEveryCellWereWalked) {
    constexpr unsigned kTexts = 1500;
    std::string all;
    for (unsigned seed = 0; seed < kTexts; ++seed) {
        const std::string made = TextMaker(seed).Make();
        TabText text(made);
        const TabAnalysis analysis(text.File);
        const std::string expected = AnalysePlainly(text.File);
        ASSERT_EQ(TextOf(analysis, text), expected) << "seed " << seed << '\n' << made;
        ASSERT_FALSE(HasFailure()) << "seed " << seed << '\n' << made;
        all += expected;
    }
    // Texts in which nothing is found would agree about anything.
    std::map<std::string, unsigned> lines;
    unsigned barsAfterAChange = 0;
    unsigned barsWithALabel = 0;
    std::istringstream found(all);
    for (std::string line; std::getline(found, line);) {
        std::istringstream words(line);
        std::string kind;
        words >> kind;
        ++lines[kind];
        std::string word;
        int time = -1;
        int label = -1;
        if (kind == "bar" && words >> word >> word >> time >> word >> label) {
            barsAfterAChange += time > 0 ? 1 : 0;
            barsWithALabel += label >= 0 ? 1 : 0;
        }
    }
    for (const char* kind : {"stave", "label", "message"})
        EXPECT_GT(lines[kind], kTexts) << kind;
    EXPECT_GT(barsAfterAChange, kTexts / 10);
    EXPECT_GT(barsWithALabel, kTexts / 10);
}

} // namespace
} // namespace Fretline
