#pragma once

#include <vector>

namespace Fretline {

class TabFile;

/// The open strings of the stave's `lineCount` lines from `firstLine` on (1 to 6 lines) as Chrom2 (MIDI note
/// number times 2), lowest string, which is the bottom line, first; one entry a line.
///
/// Taken from the leftmost column in front of the stave's dashes in which every line has a note letter. A
/// letter moves its string from the standard pitch upward by at most 4 semitones, else downward. Without such
/// a column the tuning is the standard one: of a bass for four lines, of a guitar for any other number.
std::vector<int> FindTuning(const TabFile& file, int firstLine, int lineCount);

/// The absolute column that FindTuning takes the letters from; -1 where there is none.
int FindTuningColumn(const TabFile& file, int firstLine, int lineCount);

} // namespace Fretline
