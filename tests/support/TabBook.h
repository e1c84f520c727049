#pragma once

#include <cstdint>
#include <string>

namespace TestSupport {

/// Numbers that look random and are the same on every machine and in every run.
class Dice {
public:
    explicit Dice(std::uint32_t seed) : m_State(seed * 2654435761U + 1) {}
    /// From 0 to `sides` - 1.
    int Roll(int sides) {
        m_State = m_State * 1664525U + 1013904223U;
        return static_cast<int>((m_State >> 8) % static_cast<std::uint32_t>(sides));
    }

private:
    std::uint32_t m_State;
};

/// How the staves of a made-up tab look.
struct TabBookStyle {
    int Strings = 6;
    bool HasTuningLetters = true;
    bool HasBarlines = true;
    bool HasChords = false;
    bool HasLabels = false;
    bool HasTimeSignatures = false;
    /// 0 none, 1 note-length letters, 2 beat counts.
    int RhythmLine = 0;
};

/// A tab of at least `lines` lines, four bars to a stave, made of notes that a player could play.
std::string MakeTabBook(int lines, const TabBookStyle& style, std::uint32_t seed);

/// A short tab in a style that the seed picks: odd spacing, glued staves, lyrics, stray signs and Windows
/// line ends among them.
std::string MakeOddTab(std::uint32_t seed);

} // namespace TestSupport
