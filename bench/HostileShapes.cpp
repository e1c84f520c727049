#include "bench/HostileShapes.h"

#include "tests/support/TabBook.h"

#include <string_view>

namespace {

// `count` times the text, in which "%" stands for the number of the time.
std::string Repeat(int count, std::string_view text) {
    std::string all;
    for (int number = 0; number < count; ++number) {
        for (const char c : text) {
            if (c == '%')
                all.append(std::to_string(number));
            else
                all.push_back(c);
        }
    }
    return all;
}

// A stave of six lines, `width` times the piece wide.
std::string Stave(int width, std::string_view piece) {
    const std::string line = "|" + Repeat(width, piece) + "|\n";
    return line + line + line + line + line + line + "\n";
}

std::string Book(int size) {
    constexpr int kLines = 150;
    return TestSupport::MakeTabBook(kLines * size, {}, 1);
}

std::string BookWithEverything(int size) {
    constexpr int kLines = 150;
    TestSupport::TabBookStyle style;
    style.HasChords = style.HasLabels = style.HasTimeSignatures = true;
    style.RhythmLine = 2;
    return TestSupport::MakeTabBook(kLines * size, style, 1);
}

std::string LongLine(int size) {
    constexpr int kStaves = 10;
    constexpr int kWords = 200;
    return Repeat(kStaves * size, Stave(2, "-1-3-|")) + Repeat(kWords * size, "word ") + "\n";
}

std::string Staves(int size) {
    return Repeat(50 * size, "|-1-|-2---2-|\n|---|---1-1-|\n|---|-------|\n|---|-------|\n\n");
}

std::string WideBar(int size) {
    return Stave(25 * size, "-1--");
}

std::string LabelsOnOneLine(int size) {
    return Repeat(100 * size, "solo    ") + "\n" + Stave(50 * size, "-1-------3----|");
}

std::string LabelsOnLines(int size) {
    return Repeat(1000 * size, "Verse %\n") + Stave(2, "-1-3-|");
}

std::string SignaturesOnOneLine(int size) {
    return Repeat(100 * size, "3/4     ") + "\n" + Stave(50 * size, "-1-------3----|");
}

std::string SignaturesOverStaves(int size) {
    return Repeat(100 * size, " 4/4\n|-1-|-2---2-|\n|---|---1-1-|\n|---|-------|\n|---|-------|\n\n");
}

std::string Chords(int size) {
    return Repeat(100 * size, "Am    C7/G    ") + "\n" + Stave(100 * size, "-1-----3----|");
}

std::string Messages(int size) {
    return Stave(2, "-1-3-|") + Repeat(300 * size, "la - la - la\n\n");
}

std::string BarsOfDistinctValues(int size) {
    return Repeat(50 * size, " Verse %    Solo a%\n|-1-3-------|-2---2-----|\n|-----------|---1-1-----|\n"
                             "|-----------|-----------|\n|-----------|-----------|\n\n");
}

// Labels of the same length and hash: "Aa" and "BB" in the pattern of their number.
std::string LabelsOfEqualHashes(int size) {
    constexpr unsigned kLabels = 50;
    constexpr unsigned kPairs = 16;
    std::string all;
    for (unsigned number = 0; number < kLabels * static_cast<unsigned>(size); ++number) {
        all.append(" Verse ");
        for (unsigned pair = 0; pair < kPairs; ++pair)
            all.append((number >> pair & 1U) != 0 ? "BB" : "Aa");
        all.append("\n").append(Stave(1, "-1-3-------"));
    }
    return all;
}

constexpr HostileShape kShapes[] = {
    {"book", "10 MB, 150,000 lines", Book},
    {"book with chords, labels, signatures and beats", "150,000 lines", BookWithEverything},
    {"one long line", "a line of 1 MB among 70,000 short ones", LongLine},
    {"staves", "50,000 staves", Staves},
    {"a stave without barlines", "a stave of 100,000 columns", WideBar},
    {"labels on one line", "100,000 labels", LabelsOnOneLine},
    {"labels on lines of their own", "1,000,000 labels", LabelsOnLines},
    {"signatures on one line", "100,000 signatures", SignaturesOnOneLine},
    {"a signature over each stave", "100,000 signatures and staves", SignaturesOverStaves},
    {"chords", "200,000 chords", Chords},
    {"messages", "300,000 messages", Messages},
    {"labels of equal hashes", "50,000 bars with as many values of one hash", LabelsOfEqualHashes},
    {"bars with distinct labels", "100,000 bars with as many distinct values", BarsOfDistinctValues},
};

} // namespace

std::span<const HostileShape> HostileShapes() {
    return kShapes;
}
