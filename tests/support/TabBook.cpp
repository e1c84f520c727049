#include "tests/support/TabBook.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace TestSupport {

namespace {

constexpr int kBarsPerStave = 4;
constexpr int kEighthsPerBar = 8;
constexpr std::array<const char*, 12> kChords{"Am", "C",     "G7",  "Dm",   "F",     "E7",
                                              "Bb", "Cmaj7", "F#m", "D/F#", "Gsus4", "C(add9)"};
constexpr std::array<const char*, 6> kLabels{"Intro", "Verse 1", "Chorus", "Bridge", "Solo", "Outro"};
constexpr std::array<const char*, 4> kSignatures{"4/4", "3/4", "6/8", "2/2"};

// The lines of one stave and of what stands above it, grown column by column.
class StaveText {
public:
    StaveText(const TabBookStyle& style, Dice& dice)
        : m_Style(style), m_Dice(dice), m_Rows(static_cast<std::size_t>(style.Strings)) {}

    std::string Make() {
        static constexpr std::array<char, 6> kLetters{'E', 'A', 'D', 'G', 'B', 'E'};
        if (m_Style.HasTuningLetters)
            for (std::size_t row = 0; row < m_Rows.size(); ++row)
                m_Rows[row] += kLetters[(m_Rows.size() - 1 - row) % kLetters.size()];
        AddBarline();
        for (int bar = 0; bar < kBarsPerStave; ++bar)
            AddBar();
        return Text();
    }

private:
    void AddBarline() {
        for (std::string& row : m_Rows)
            row += m_Style.HasBarlines ? '|' : '-';
    }

    void AddBar() {
        const std::size_t left = m_Rows.front().size() + 1;
        if (m_Style.HasChords)
            Put(m_Chords, left, kChords[Pick(kChords.size())]);
        AddColumn(-1, 0);
        for (int eighth = 0; eighth < kEighthsPerBar; ++eighth) {
            const std::size_t column = m_Rows.front().size();
            if (m_Style.RhythmLine == 1)
                Put(m_Rhythm, column, eighth % 2 == 0 ? "Q" : "");
            else if (m_Style.RhythmLine == 2)
                Put(m_Rhythm, column,
                    eighth % 2 == 0 ? std::string(1, static_cast<char>('1' + eighth / 2)) : "+");
            const bool isStruck = m_Style.RhythmLine == 1 ? eighth % 2 == 0 : m_Dice.Roll(4) != 0;
            AddColumn(isStruck ? m_Dice.Roll(m_Style.Strings) : -1, m_Dice.Roll(13));
            AddColumn(-1, 0);
        }
        AddBarline();
    }

    void AddColumn(int string, int fret) {
        for (std::size_t row = 0; row < m_Rows.size(); ++row)
            m_Rows[row] += static_cast<int>(row) == string ? static_cast<char>('0' + fret % 10) : '-';
    }

    static void Put(std::string& line, std::size_t column, const std::string& text) {
        if (text.empty())
            return;
        line.resize(std::max(line.size(), column), ' ');
        line += text;
    }

    std::size_t Pick(std::size_t count) const {
        return static_cast<std::size_t>(m_Dice.Roll(static_cast<int>(count)));
    }

    std::string Text() const {
        std::string text;
        if (m_Style.HasLabels)
            text.append("  ").append(kLabels[Pick(kLabels.size())]).append("\n");
        if (m_Style.HasTimeSignatures)
            text.append("  ").append(kSignatures[Pick(kSignatures.size())]).append("\n");
        if (m_Style.HasChords)
            text.append(m_Chords).append("\n");
        if (m_Style.RhythmLine != 0)
            text.append(m_Rhythm).append("\n");
        for (const std::string& row : m_Rows)
            text.append(row).append("\n");
        return text.append("\n");
    }

    const TabBookStyle& m_Style;
    Dice& m_Dice;
    std::vector<std::string> m_Rows;
    std::string m_Chords;
    std::string m_Rhythm;
};

int CountLines(const std::string& text) {
    int lines = 0;
    for (const char character : text)
        lines += character == '\n' ? 1 : 0;
    return lines;
}

// Puts a sign where nobody expects one.
void Disturb(std::string& text, Dice& dice) {
    static constexpr std::string_view kSigns = "-|xX 0123456789hp/\\~b#()EQWHSTm\t/AaGg.+";
    const int count = dice.Roll(12);
    for (int i = 0; i < count && !text.empty(); ++i) {
        const auto place = static_cast<std::size_t>(dice.Roll(static_cast<int>(text.size())));
        if (text[place] != '\n')
            text[place] = kSigns[static_cast<std::size_t>(dice.Roll(static_cast<int>(kSigns.size())))];
    }
}

} // namespace

std::string MakeTabBook(int lines, const TabBookStyle& style, std::uint32_t seed) {
    Dice dice(seed);
    std::string text;
    int have = 0;
    while (have < lines) {
        const std::string stave = StaveText(style, dice).Make();
        have += CountLines(stave);
        text += stave;
    }
    return text;
}

std::string MakeOddTab(std::uint32_t seed) {
    Dice dice(seed);
    TabBookStyle style;
    style.Strings = dice.Roll(4) == 0 ? 4 : 4 + dice.Roll(4);
    style.HasTuningLetters = dice.Roll(2) == 0;
    style.HasBarlines = dice.Roll(4) != 0;
    style.HasChords = dice.Roll(2) == 0;
    style.HasLabels = dice.Roll(3) == 0;
    style.HasTimeSignatures = dice.Roll(3) == 0;
    style.RhythmLine = dice.Roll(3);
    std::string text = MakeTabBook(20 + dice.Roll(40), style, seed + 1);
    Disturb(text, dice);
    if (dice.Roll(5) == 0)
        for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 2))
            text.insert(at, 1, '\r');
    return text;
}

} // namespace TestSupport
