#include "tests/Projects/Fretline/text/PlainAnalysis.h"

#include "Projects/Fretline/text/Labels.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <map>
#include <ranges>

namespace Fretline {

using Nvr::Ascii::IsDigit;
using Nvr::Ascii::IsSpace;

namespace {

bool IsName(char c) {
    return c != '\0' && std::string("ABCDEFGHabcdefgh").find(c) != std::string::npos;
}

} // namespace

PlainAnalysis::PlainAnalysis(const TabFile& file) : m_File(file), m_Width(file.GetMaxLineLength()) {
    GroupLines();
    FindSignatures();
    AssignSignatures();
    FindLabels();
    AttachLabels();
}

bool PlainAnalysis::IsStaveLine(int line) const {
    return std::ranges::any_of(
        Staves, [&](const Stave& stave) { return stave.First <= line && line < stave.First + stave.Count; });
}

bool PlainAnalysis::IsTimeSignatureAt(int line, int column) const {
    return std::ranges::any_of(Signatures, [&](const Signature& signature) {
        return signature.Line == line && signature.Start <= column && column <= signature.End;
    });
}

void PlainAnalysis::GroupLines() {
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

void PlainAnalysis::ProcessRun(std::vector<int> run) {
    if (run.size() >= 4) {
        int width = 0;
        for (const int line : run)
            width = std::max(width, m_File.GetLineLength(line));
        std::map<int, int> hyphens, blanks, lettersOfColumn;
        int totalOfBlanks = 0, mostHyphens = 0;
        for (const int line : run) {
            for (int column = 0; column < width; ++column) {
                const char c = m_File.GetChar(line, column);
                if (c == '-') {
                    ++hyphens[line];
                } else if (IsSpace(c) || c == '\0') {
                    ++blanks[line];
                    ++totalOfBlanks;
                } else if (IsName(c)) {
                    ++lettersOfColumn[column];
                }
            }
            mostHyphens = std::max(mostHyphens, hyphens[line]);
        }
        const int averageBlanks = totalOfBlanks / static_cast<int>(run.size());
        int letterColumn = -1;
        for (const auto& [column, count] : lettersOfColumn)
            if (letterColumn < 0 || count > lettersOfColumn[letterColumn])
                letterColumn = column;
        const auto isReal = [&](int line) {
            return hyphens[line] >= mostHyphens * 65 / 100 || blanks[line] <= averageBlanks * 120 / 100 ||
                   (letterColumn >= 0 && IsName(m_File.GetChar(line, letterColumn)));
        };
        for (; !isReal(run.front()); run.erase(run.begin()))
            Messages.push_back("100 " + std::to_string(run.front() + 1));
        for (; !isReal(run.back()); run.pop_back())
            Messages.push_back("100 " + std::to_string(run.back() + 1));
    }
    if (run.size() < 4) {
        Messages.push_back("101 " + std::to_string(run.front() + 1) + ' ' + std::to_string(run.back() + 1));
        return;
    }
    int first = run.front();
    for (int left = static_cast<int>(run.size()); left > 0; left -= 6, first += 6)
        Staves.push_back(MakeStave(first, std::min(left, 6)));
}

PlainAnalysis::Stave PlainAnalysis::MakeStave(int first, int count) const {
    Stave stave = {first, count, {}, {}, TuningOf(first, count)};
    const auto lines = std::views::iota(first, first + count);
    const auto isBarline = [&](int column) {
        const char top = m_File.GetChar(first, column);
        return top != '-' && top != 'x' && top != 'X' && !IsDigit(top) &&
               std::ranges::all_of(lines, [&](int line) { return m_File.GetChar(line, column) == top; });
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
        if (column == m_Width)
            break;
        const bool isDouble = column + 1 < m_Width && isBarline(column + 1);
        stave.Barlines.push_back({isDouble, column});
        column += isDouble ? 1 : 0;
        start = column + 1;
    }
    return stave;
}

std::vector<int> PlainAnalysis::TuningOf(int first, int count) const {
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
            letters += m_File.GetChar(line, column);
        if (!std::all_of(letters.begin(), letters.end(), IsName))
            letters.clear();
    }
    std::vector<int> tuning;
    for (int k = 0; k < count; ++k) {
        const auto at = static_cast<std::size_t>(k);
        int shift = 0;
        if (!letters.empty()) {
            const char upper = static_cast<char>(letters[at] >= 'a' ? letters[at] - 'a' + 'A' : letters[at]);
            const int d = semitones.at(upper) - semitones.at(standardLetters[at]);
            shift = d >= 5 ? d - 12 : d;
        }
        tuning.push_back((count == 4 ? bass : guitar)[at] + 2 * shift);
    }
    return tuning;
}

void PlainAnalysis::FindSignatures() {
    int line = 0;
    for (const Stave& stave : Staves) {
        for (; line < stave.First; ++line)
            FindSignaturesIn(line);
        line = stave.First + stave.Count;
    }
}

void PlainAnalysis::FindSignaturesIn(int line) {
    const auto digit = [this, line](int column) { return m_File.GetChar(line, column) - '0'; };
    const auto isDigit = [this, line](int column) { return IsDigit(m_File.GetChar(line, column)); };
    for (int c = 0; c < m_Width; ++c) {
        if (m_File.GetChar(line, c) != '/')
            continue;
        if (c == 0 || c >= m_Width - 1)
            return;
        if (!isDigit(c - 1) || !isDigit(c + 1))
            continue;
        Signature signature = {line, c, c - 1, c + 1, digit(c - 1), digit(c + 1)};
        if (c - 2 >= 0 && isDigit(c - 2)) {
            signature.Numerator += 10 * digit(c - 2);
            signature.Start = c - 2;
        }
        if (c + 2 < m_Width && isDigit(c + 2)) {
            signature.Denominator = 10 * signature.Denominator + digit(c + 2);
            signature.End = c + 2;
        }
        const int d = signature.Denominator;
        if (signature.Numerator > 0 && (d == 2 || d == 4 || d == 8 || d == 16))
            Signatures.push_back(signature);
    }
}

void PlainAnalysis::AssignSignatures() {
    int current = Signatures.empty() ? -1 : 0;
    const int length = Signatures.empty() ? 1024 : 1024 / Signatures[0].Denominator * Signatures[0].Numerator;
    int top = 0;
    for (Stave& stave : Staves) {
        for (Bar& bar : stave.Bars) {
            if (!bar.HasDash)
                continue;
            const int left = std::max(bar.Start - 2, 0);
            const auto found = std::ranges::find_if(Signatures, [&](const Signature& signature) {
                return top <= signature.Line && signature.Line < stave.First && left <= signature.Column &&
                       signature.Column < left + bar.Width;
            });
            if (Signatures.size() > 1 && found != Signatures.end())
                current = static_cast<int>(found - Signatures.begin());
            bar.TimeSignature = current;
            bar.Length = length;
        }
        top = stave.First + stave.Count;
    }
}

void PlainAnalysis::FindLabels() {
    std::vector<Label> all;
    for (int line = 0; line < m_File.GetLineCount(); ++line)
        for (const std::string_view keyword : kLabelKeywords) {
            const int length = static_cast<int>(keyword.size());
            for (int c = m_File.FindText(line, 0, keyword); c >= 0;
                 c = m_File.FindText(line, c + length, keyword)) {
                const bool isPart = (c > 0 && Nvr::Ascii::IsAlpha(m_File.GetChar(line, c - 1))) ||
                                    Nvr::Ascii::IsAlpha(m_File.GetChar(line, c + length));
                if (!isPart)
                    all.push_back(LabelAt(line, c, std::string(keyword)));
            }
        }
    for (const Label& label : all) {
        const bool isKnown = std::ranges::any_of(Labels, [&](const Label& earlier) {
            return earlier.Line == label.Line && earlier.Start == label.Start && earlier.End == label.End;
        });
        if (!isKnown)
            Labels.push_back(label);
    }
}

PlainAnalysis::Label PlainAnalysis::LabelAt(int line, int column, const std::string& keyword) const {
    int left = column;
    for (int blanks = 0; left > 0; --left) {
        blanks += m_File.GetChar(line, left) == ' ' ? 1 : 0;
        if (blanks == 3)
            break;
    }
    int right = column + static_cast<int>(keyword.size()) - 1;
    for (int blanks = 0; right < m_Width; ++right) {
        const char c = m_File.GetChar(line, right);
        blanks += c == ' ' ? 1 : 0;
        if (c == '\0' || blanks == 3)
            break;
    }
    right = std::min(right, m_Width - 1);
    while (m_File.GetChar(line, right) == '\0' || IsSpace(m_File.GetChar(line, right)))
        --right;
    while (IsSpace(m_File.GetChar(line, left)))
        ++left;
    return {line, left, right + 1, keyword};
}

void PlainAnalysis::AttachLabels() {
    int top = 0;
    for (Stave& stave : Staves) {
        bool isFound = false;
        for (int line = stave.First - 1; line >= top && !isFound; --line)
            for (std::size_t i = 0; i < Labels.size(); ++i) {
                if (Labels[i].Line != line)
                    continue;
                isFound = true;
                const int middle = (Labels[i].Start + Labels[i].End) / 2;
                for (Bar& bar : stave.Bars)
                    if (bar.Start <= middle && middle <= bar.Start + bar.Width - 1)
                        bar.Label = static_cast<int>(i);
            }
        top = stave.First + stave.Count;
    }
}

} // namespace Fretline
