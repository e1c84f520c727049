#pragma once

namespace Fretline {

/// A rhythm line of the text, whatever it looks like: it says when a text column sounds and how long a note
/// there may last, and how long the bar is. Owned by its TabBar.
class Rhythms {
public:
    virtual ~Rhythms();
    Rhythms(const Rhythms&) = delete;
    Rhythms& operator=(const Rhythms&) = delete;

    /// The time of a bar-relative column in score units, not rounded. `duration` is the length that a note
    /// there may have, 0 for no limit; `tied` is true when the line ties the note to the one before. Both are
    /// set by every call.
    virtual int GetPosition(int column, int& duration, bool& tied) const = 0;

    /// The length of the bar in score units.
    int GetLength() const { return m_Length; }

protected:
    Rhythms() = default;

    int m_Length = 0;
};

} // namespace Fretline
