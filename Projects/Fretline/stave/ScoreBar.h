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

/// One bar of the score: items in time order, each beginning where the one before it ends, the first at 0.
///
/// One kind of bar begins with a gap: where a stave without barlines is cut into bars whose length is no
/// multiple of a quaver but longer than one (5/16), the last item of a bar may reach over its end, and the
/// next bar begins with the time that this item takes of it left empty.
struct ScoreBar {
    std::vector<BarItem> m_Items;
};

} // namespace Fretline
