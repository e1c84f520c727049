#pragma once

namespace Fretline {

struct TabChord;

/// One instant of a bar, and the element of both rhythm sources. Columns are bar-relative, times in score
/// units. Borrows the chord.
struct TabColumn {
    int m_Column = 0;
    /// How many text columns the number takes.
    int m_Width = 1;
    int m_Duration = 0;
    int m_Position = 0;
    /// 0, or -1 when the column reaches one text column to the left of m_Column.
    int m_StartOffset = 0;
    /// The note here is tied from the note before.
    bool m_Tied = false;
    /// This column stays one text column wide.
    bool m_Single = false;
    const TabChord* m_Chord = nullptr;
};

/// For std::lower_bound.
inline bool IsLeftOf(const TabColumn& column, int place) {
    return column.m_Column < place;
}

} // namespace Fretline
