#include "Projects/Score/ChordName.h"

#include <gtest/gtest.h>

namespace {

using Score::ChordDegree;
using Score::ChordName;

std::string Describe(const ChordName& name) {
    const auto pitch = [](const Score::PitchName& p) {
        return std::string(1, p.Step) + (p.Alter > 0 ? "#" : p.Alter < 0 ? "b" : "");
    };
    std::string text = pitch(name.Root) + " " + name.Kind;
    for (const ChordDegree& degree : name.Degrees)
        text += std::string(degree.How == ChordDegree::Change::Add ? " +" : " ~") +
                (degree.Alter > 0   ? "#"
                 : degree.Alter < 0 ? "b"
                                    : "") +
                std::to_string(degree.Value);
    return name.HasBass ? text + " / " + pitch(name.Bass) : text;
}

TEST(ChordName, UnderstandsChordTexts) {
    const struct {
        const char *Text, *Meaning;
    } rows[] = {
        {"C", "C major"},
        {"Am7", "A minor-seventh"},
        {"Gmaj7", "G major-seventh"},
        {"C#m7/G#", "C# minor-seventh / G#"},
        {"Bb", "Bb major"},
        {"D/F#", "D major / F#"},
        {"Dsus4", "D suspended-fourth"},
        {"Dsus2", "D suspended-second"},
        {"Dsus", "D suspended-fourth"},
        {"C6/9", "C major-sixth +9"},
        {"C(add9)", "C major +9"},
        {"Cadd9", "C major +9"},
        {"C(#9)", "C major +#9"},
        {"C7(b9)", "C dominant +b9"},
        {"C7(b5)", "C dominant ~b5"},
        {"Cm7b5", "C half-diminished"},
        {"E7sus4", "E suspended-fourth +b7"},
        {"Caug", "C augmented"},
        {"Bdim7", "B diminished-seventh"},
        {"A5", "A power"},
        {"C13", "C dominant-13th"},
        {"C1", "C major +1"},
        {"F2", "F major +2"},
        {"Cdimsus", "C other"},
        {"", "C none"},
        {"x", "C none"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.Meaning, Describe(ChordName::Parse(row.Text))) << row.Text;
}

} // namespace
