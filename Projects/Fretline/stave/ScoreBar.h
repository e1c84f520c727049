#pragma once

#include <cstdint>
#include <vector>

namespace Fretline {

struct TabChord;

/// One sounding string: three bytes.
struct TabNote {
    /// Keeps the low eight bits of both, and works out the diatonic step from the pitch so kept.
    TabNote(int string, int chrom2);

    /// 0 for the lowest string.
    std::uint8_t m_String;
    /// The MIDI note number times 2.
    std::uint8_t m_Chrom2;
    /// The diatonic step, 7 to the octave; black keys count as C sharp, E flat, F sharp, G sharp, B flat.
    std::uint8_t m_Diat;

    bool operator==(const TabNote&) const = default;
};

/// One NoteRest to be. Its duration is always a power of two. Borrows the chord.
struct BarItem {
    /// Within the score bar, in score units; 16 bits of it reach the score.
    int m_Position = 0;
    /// The duration is 1 << m_LogDuration score units.
    int m_LogDuration = 0;
    /// By ascending diatonic step; empty for a rest.
    std::vector<TabNote> m_Notes;
    /// The item goes on into the next one. Without notes that means nothing.
    bool m_Tied = false;
    /// The chord symbol to write here, or null.
    const TabChord* m_Chord = nullptr;
};

/// One bar of the score: items in time order, free of gaps up to the last of them.
struct ScoreBar {
    std::vector<BarItem> m_Items;
};

} // namespace Fretline
