#pragma once

namespace Fretline {

class TabBar;
class TabFile;

/// The tests that tell a rhythm line from words, chords and anything else beside a stave. None asks for a
/// line outside the file, and the caller must not give one.

/// True when the line is one of note-length letters between the two absolute columns (the second is after
/// the last): no chord letter, at least a minim's worth of letters, and the last of them alone or four lone
/// Es.
bool IsNoteLengthsLine(const TabFile& file, int line, int firstColumn, int endColumn);

/// True when the line at `offset` from the bar's first line counts beats over the bar: one to three kinds of
/// symbol that recur, stand apart and spread over the bar, no chord letter among them.
bool IsBeatPositionsLine(const TabBar& bar, int offset);

/// True when no letter stands before the absolute column, and no letter or "#" after it.
bool IsLoneLetter(const TabFile& file, int line, int column);

} // namespace Fretline
