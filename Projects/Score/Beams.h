#pragma once

#include "Projects/Score/Notation.h"

#include <vector>

namespace Score {

/// One beam at one note or chord.
enum class Beam {
    Begin,
    Continue,
    End,
    /// Short ones, of a note whose neighbours have fewer beams: toward the next note, or the one before.
    ForwardHook,
    BackwardHook,
};

/// The beams of each piece of a bar, from that of the quavers up to that of the hemidemisemiquavers; none for
/// rests, for crotchets and longer, and for a note alone in its beat. Beams join the notes of a beat; four
/// quavers where a half bar of 4/4 or 2/2 has nothing else.
std::vector<std::vector<Beam>> BeamsOf(const WrittenBar& bar);

} // namespace Score
