#include "Projects/Fretline/text/TabTuning.h"

#include "Projects/Fretline/score/Pitch.h"
#include "Projects/Fretline/text/TabChars.h"
#include "Projects/Fretline/text/TabFile.h"

#include <algorithm>
#include <array>
#include <string>

namespace Fretline {

namespace {

constexpr int kMostStrings = 6;
// A letter further above the standard one is meant below it.
constexpr int kMostSemitonesUp = 4;

using OpenStrings = std::array<int, kMostStrings>;

// Lowest string first: E2 A2 D3 G3 B3 E4.
constexpr OpenStrings kGuitar = {80, 90, 100, 110, 118, 128};
// An octave below the guitar: E1 A1 D2 G2.
constexpr OpenStrings kBass = {56, 66, 76, 86, 94, 104};
constexpr std::array<char, kMostStrings> kStandardLetters = {'E', 'A', 'D', 'G', 'B', 'E'};

const OpenStrings& StandardTuning(int lineCount) {
    return lineCount == kStringsOfABass ? kBass : kGuitar;
}

// Above C.
constexpr int SemitonesOf(char letter) {
    switch (letter) {
    case 'C':
        return 0;
    case 'D':
        return 2;
    case 'E':
        return 4;
    case 'F':
        return 5;
    case 'G':
        return 7;
    case 'A':
        return 9;
    default: // B, and H, which is the same note.
        return 11;
    }
}

int ShiftOf(char letter, char standardLetter) {
    const int up = SemitonesOf(letter) - SemitonesOf(standardLetter);
    return up > kMostSemitonesUp ? up - kSemitonesPerOctave : up;
}

int RightmostFirstDash(const TabFile& file, int firstLine, int lineCount) {
    int rightmost = -1;
    for (int line = firstLine; line < firstLine + lineCount; ++line)
        rightmost = std::max(rightmost, file.FindChar(line, 0, '-'));
    return rightmost;
}

// The letters of the column, bottom line first; empty when a line has none there.
std::string LettersIn(const TabFile& file, int firstLine, int lineCount, int column) {
    std::string letters;
    for (int line = firstLine + lineCount - 1; line >= firstLine; --line) {
        const char c = file.GetChar(line, column);
        if (!IsNoteLetter(c))
            return {};
        letters += Nvr::Ascii::ToUpper(c);
    }
    return letters;
}

} // namespace

int FindTuningColumn(const TabFile& file, int firstLine, int lineCount) {
    const int end = RightmostFirstDash(file, firstLine, lineCount);
    for (int column = 0; column < end; ++column)
        if (!LettersIn(file, firstLine, lineCount, column).empty())
            return column;
    return -1;
}

std::vector<int> FindTuning(const TabFile& file, int firstLine, int lineCount) {
    const OpenStrings& standard = StandardTuning(lineCount);
    std::vector<int> tuning(standard.begin(), standard.begin() + lineCount);
    const int column = FindTuningColumn(file, firstLine, lineCount);
    const std::string letters = column < 0 ? std::string() : LettersIn(file, firstLine, lineCount, column);
    for (std::size_t string = 0; string < letters.size(); ++string)
        tuning[string] += kChrom2PerSemitone * ShiftOf(letters[string], kStandardLetters[string]);
    return tuning;
}

} // namespace Fretline
