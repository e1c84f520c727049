#pragma once

#include "Projects/Fretline/stave/TabChord.h"

#include <memory>
#include <string>

namespace Fretline {

class TabFile;

/// Reads chord symbols out of a line of text. Every capital A to G begins a symbol, even in a line of words;
/// what follows belongs to it as long as it makes sense. Columns are absolute.

/// The next symbol on the line between `column` and `endColumn`, or null when there is none. `column` moves
/// after the last character that the symbol has accepted, so that what was read further and rejected is
/// looked at again. A token that still waits when the end column is reached is not taken.
std::unique_ptr<TabChord> ParseChordSymbol(const TabFile& file, int line, int& column, int endColumn);

/// Appends the meaning of `token`, whose last character stands at `column`, to the chord, and moves
/// `lastAccepted` there. True when the token is no part of a chord: the symbol must end, and nothing has
/// changed. An empty token is harmless. `token` is empty afterwards in every case.
bool AddChordToken(TabChord& chord, std::string& token, int column, int& lastAccepted);

/// Cuts a symbol whose brackets do not pair back to what stands before them, and `lastAccepted` to the
/// bracket. With three or more brackets left open nothing is cut.
void FinishChord(TabChord& chord, int& lastAccepted);

} // namespace Fretline
