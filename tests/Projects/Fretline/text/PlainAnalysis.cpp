#include "tests/Projects/Fretline/text/PlainAnalysis.h"

#include "Projects/Fretline/text/Labels.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <sstream>
#include <vector>

namespace Fretline {
namespace {

using Nvr::Ascii::IsDigit;
using Nvr::Ascii::IsSpace;

bool IsName(char c) {
    return c != '\0' && std::string("ABCDEFGHabcdefgh").find(c) != std::string::npos;
}

struct Bar {
    int Start, Width;
    bool HasDash;
    // Indexes, or -1.
    int Signature = -1, Label = -1;
};
struct Stave {
    int First, Count;
    std::vector<Bar> Bars = {};
};
struct Signature {
    int Line, Column;
};
struct Label {
    int Line, Start, End;
};

class PlainAnalysis {
public:
    explicit PlainAnalysis(const TabFile& file)
        : m_File(file), m_Width(file.GetMaxLineLength()),
          m_Pictures(static_cast<std::size_t>(file.GetLineCount()),
                     std::string(static_cast<std::size_t>(m_Width), '.')) {}

    std::string Text() {
        GroupLines();
        int top = 0;
        for (const Stave& stave : m_Staves) {
            for (int line = top; line < stave.First; ++line)
                FindSignaturesIn(line);
            top = stave.First + stave.Count;
        }
        FindLabels();
        top = 0;
        for (Stave& stave : m_Staves) {
            AssignSignatures(stave, top);
            AttachLabels(stave, top);
            Print(stave);
            top = stave.First + stave.Count;
        }
        for (const std::string& picture : m_Pictures)
            m_Text << picture << '\n';
        return m_Text.str();
    }

private:
    char At(int line, int column) const { return m_File.GetChar(line, column); }
    char& Picture(int line, int column) {
        return m_Pictures[static_cast<std::size_t>(line)][static_cast<std::size_t>(column)];
    }

    void GroupLines() {
        std::vector<int> run;
        for (int line = 0; line <= m_File.GetLineCount(); ++line) {
            if (line < m_File.GetLineCount() && std::ranges::count(m_File.GetLine(line), '-') >= 2) {
                run.push_back(line);
            } else if (!run.empty()) {
                ProcessRun(run);
                run.clear();
            }
        }
    }

    void ProcessRun(std::vector<int> run) {
        if (run.size() >= 4)
            Trim(run);
        if (run.size() < 4) {
            m_Text << "message 101 " << run.front() + 1 << ' ' << run.back() + 1 << '\n';
            return;
        }
        int first = run.front();
        for (int left = static_cast<int>(run.size()); left > 0; left -= 6, first += 6)
            MakeStave(first, std::min(left, 6));
    }

    void Trim(std::vector<int>& run) {
        int width = 0, totalOfBlanks = 0, mostHyphens = 0, letterColumn = -1;
        std::map<int, int> hyphens, blanks, letters;
        for (const int line : run)
            width = std::max(width, m_File.GetLineLength(line));
        for (const int line : run) {
            for (int column = 0; column < width; ++column) {
                const char c = At(line, column);
                hyphens[line] += c == '-' ? 1 : 0;
                blanks[line] += IsSpace(c) || c == '\0' ? 1 : 0;
                letters[column] += IsName(c) ? 1 : 0;
            }
            totalOfBlanks += blanks[line];
            mostHyphens = std::max(mostHyphens, hyphens[line]);
        }
        for (const auto& [column, count] : letters)
            if (count > (letterColumn < 0 ? 0 : letters[letterColumn]))
                letterColumn = column;
        const int averageBlanks = totalOfBlanks / static_cast<int>(run.size());
        const auto isReal = [&](int line) {
            return hyphens[line] >= mostHyphens * 65 / 100 || blanks[line] <= averageBlanks * 120 / 100 ||
                   (letterColumn >= 0 && IsName(At(line, letterColumn)));
        };
        for (; !isReal(run.front()); run.erase(run.begin()))
            m_Text << "message 100 " << run.front() + 1 << '\n';
        for (; !isReal(run.back()); run.pop_back())
            m_Text << "message 100 " << run.back() + 1 << '\n';
    }

    void MakeStave(int first, int count) {
        Stave stave = {first, count};
        std::vector<int> lines(static_cast<std::size_t>(count));
        std::iota(lines.begin(), lines.end(), first);
        const auto isBarline = [&](int column) {
            const char top = At(first, column);
            return top != '-' && top != 'x' && top != 'X' && !IsDigit(top) &&
                   std::ranges::all_of(lines, [&](int line) { return At(line, column) == top; });
        };
        const auto hasDash = [&](int start, int end) {
            return std::ranges::any_of(lines, [&](int line) {
                const int dash = m_File.FindChar(line, start, '-');
                return dash >= 0 && dash < end;
            });
        };
        int start = 0;
        for (int column = 0; column <= m_Width; ++column) {
            if (column < m_Width && !isBarline(column))
                continue;
            stave.Bars.push_back({start, column - start, hasDash(start, column)});
            column += column + 1 < m_Width && isBarline(column + 1) ? 1 : 0;
            start = column + 1;
        }
        m_Staves.push_back(stave);
    }

    std::string TuningOf(int first, int count) const {
        const std::vector<int> guitar = {80, 90, 100, 110, 118, 128};
        const std::vector<int> bass = {56, 66, 76, 86, 94, 104};
        const std::string standardLetters = "EADGBE";
        const std::map<char, int> semitones = {{'C', 0}, {'D', 2}, {'E', 4},  {'F', 5},
                                               {'G', 7}, {'A', 9}, {'B', 11}, {'H', 11}};
        int rightmost = -1;
        for (int line = first; line < first + count; ++line)
            rightmost = std::max(rightmost, m_File.FindChar(line, 0, '-'));
        std::string letters;
        for (int column = 0; column < rightmost && letters.empty(); ++column) {
            for (int line = first + count - 1; line >= first; --line)
                letters += At(line, column);
            if (!std::ranges::all_of(letters, IsName))
                letters.clear();
        }
        std::string tuning;
        for (std::size_t k = 0; k < static_cast<std::size_t>(count); ++k) {
            int shift = 0;
            if (!letters.empty()) {
                shift = semitones.at(Nvr::Ascii::ToUpper(letters[k])) - semitones.at(standardLetters[k]);
                shift -= shift >= 5 ? 12 : 0;
            }
            tuning += ' ' + std::to_string((count == 4 ? bass : guitar)[k] + 2 * shift);
        }
        return tuning;
    }

    void FindSignaturesIn(int line) {
        const auto digit = [&](int column) { return At(line, column) - '0'; };
        const auto isDigit = [&](int column) { return IsDigit(At(line, column)); };
        for (int c = 0; c < m_Width; ++c) {
            if (At(line, c) != '/')
                continue;
            if (c == 0 || c >= m_Width - 1)
                return;
            if (!isDigit(c - 1) || !isDigit(c + 1))
                continue;
            const bool hasTens = c - 2 >= 0 && isDigit(c - 2), hasOnes = c + 2 < m_Width && isDigit(c + 2);
            const int numerator = digit(c - 1) + (hasTens ? 10 * digit(c - 2) : 0);
            const int denominator = hasOnes ? 10 * digit(c + 1) + digit(c + 2) : digit(c + 1);
            if (numerator == 0 ||
                (denominator != 2 && denominator != 4 && denominator != 8 && denominator != 16))
                continue;
            if (m_Signatures.empty())
                m_BarLength = 1024 / denominator * numerator;
            m_Signatures.push_back({line, c});
            m_Text << "time " << line << ':' << c << ' ' << numerator << '/' << denominator << '\n';
            for (int covered = c - (hasTens ? 2 : 1); covered <= c + (hasOnes ? 2 : 1); ++covered)
                Picture(line, covered) = '/';
        }
    }

    void AssignSignatures(Stave& stave, int top) {
        for (Bar& bar : stave.Bars) {
            if (!bar.HasDash)
                continue;
            const int left = std::max(bar.Start - 2, 0);
            const auto found = std::ranges::find_if(m_Signatures, [&](const Signature& signature) {
                return top <= signature.Line && signature.Line < stave.First && left <= signature.Column &&
                       signature.Column < left + bar.Width;
            });
            if (found != m_Signatures.end())
                m_Current = static_cast<int>(found - m_Signatures.begin());
            bar.Signature = m_Signatures.empty() ? -1 : m_Current;
        }
    }

    // From left to right; a character that breaks a match is not tried again as its first.
    int FindText(int line, int start, std::string_view text) const {
        std::size_t matched = 0;
        for (int column = start; column < m_Width; ++column) {
            matched = Nvr::Ascii::ToLower(At(line, column)) == text[matched] ? matched + 1 : 0;
            if (matched == text.size())
                return column + 1 - static_cast<int>(matched);
        }
        return -1;
    }

    void FindLabels() {
        for (int line = 0; line < m_File.GetLineCount(); ++line)
            for (const std::string_view word : kLabelKeywords) {
                const int length = static_cast<int>(word.size());
                for (int c = FindText(line, 0, word); c >= 0; c = FindText(line, c + length, word))
                    if (!(c > 0 && Nvr::Ascii::IsAlpha(At(line, c - 1))) &&
                        !Nvr::Ascii::IsAlpha(At(line, c + length)))
                        AddLabel(line, c, std::string(word));
            }
    }

    void AddLabel(int line, int column, const std::string& keyword) {
        int left = column;
        for (int blanks = 0; left > 0; --left)
            if (At(line, left) == ' ' && ++blanks == 3)
                break;
        int right = column + static_cast<int>(keyword.size()) - 1;
        for (int blanks = 0; right < m_Width && At(line, right) != '\0'; ++right)
            if (At(line, right) == ' ' && ++blanks == 3)
                break;
        right = std::min(right, m_Width - 1);
        while (At(line, right) == '\0' || IsSpace(At(line, right)))
            --right;
        while (IsSpace(At(line, left)))
            ++left;
        if (std::ranges::any_of(m_Labels, [&](const Label& earlier) {
                return earlier.Line == line && earlier.Start == left && earlier.End == right + 1;
            }))
            return;
        m_Labels.push_back({line, left, right + 1});
        m_Text << "label " << line << ':' << left << '-' << right + 1 << ' ' << keyword << '\n';
    }

    void AttachLabels(Stave& stave, int top) const {
        bool isFound = false;
        for (int line = stave.First - 1; line >= top && !isFound; --line)
            for (std::size_t i = 0; i < m_Labels.size(); ++i) {
                if (m_Labels[i].Line != line)
                    continue;
                isFound = true;
                const int middle = (m_Labels[i].Start + m_Labels[i].End) / 2;
                for (Bar& bar : stave.Bars)
                    if (bar.Start <= middle && middle <= bar.Start + bar.Width - 1)
                        bar.Label = static_cast<int>(i);
            }
    }

    void Print(Stave& stave) {
        m_Text << "stave " << stave.First << '+' << stave.Count << TuningOf(stave.First, stave.Count)
               << (std::ranges::count(stave.Bars, true, &Bar::HasDash) == 1 ? " single\n" : "\n");
        while (stave.Bars.back().Width == 0 && stave.Bars.back().Label < 0)
            stave.Bars.pop_back();
        for (const Bar& bar : stave.Bars)
            m_Text << "bar " << bar.Start << '+' << bar.Width << " time " << bar.Signature << " label "
                   << bar.Label << " length " << (bar.HasDash ? m_BarLength : 0) << '\n';
        for (int line = stave.First; line < stave.First + stave.Count; ++line)
            m_Pictures[static_cast<std::size_t>(line)] += " in a stave";
    }

    const TabFile& m_File;
    int m_Width;
    // A line of the file each: "/" where a time signature is.
    std::vector<std::string> m_Pictures;
    // The time signature that holds from here on.
    int m_Current = 0;
    int m_BarLength = 1024;
    std::vector<Stave> m_Staves;
    std::vector<Signature> m_Signatures;
    std::vector<Label> m_Labels;
    std::ostringstream m_Text;
};

} // namespace

std::string AnalysePlainly(const TabFile& file) {
    return PlainAnalysis(file).Text();
}

} // namespace Fretline
