#pragma once

namespace Fretline {

/// A time signature found in the text between two staves, such as 3/4. Columns are absolute.
struct TabTimeSignature {
    int m_Line;
    /// Of the slash.
    int m_Column;
    /// Of the first digit.
    int m_StartColumn;
    /// Of the last digit.
    int m_EndColumn;
    /// Above 0.
    int m_Numerator;
    /// 2, 4, 8 or 16.
    int m_Denominator;

    /// Base-2 logarithm of one unit of the denominator in score units: 8 for a crotchet.
    int GetLogUnitLength() const;
    /// The length of a bar in score units.
    int GetLength() const;
    /// Compares numerator and denominator only.
    bool IsSameAs(const TabTimeSignature& other) const;
};

} // namespace Fretline
