#pragma once

#include "Projects/Score/ScoreParts.h"
#include "Projects/Score/TextSink.h"

#include <string>

namespace Score {

/// The score as MusicXML 4.0 (partwise), UTF-8: each part with a TAB clef, the stave's lines and tuning,
/// string and fret of each note, chord symbols as harmony, section labels as rehearsal marks; notes, rests,
/// beams and pickup as WriteOut and BeamsOf have them. Bar lengths are those of the bar spacings, whatever
/// the time signature says. A score without rhythms shows no metre and no stems, and has a crotchet for each
/// chord.
///
/// Written measure by measure; all of it takes a hundred times the memory of a tab full of notes.
void WriteMusicXml(ScoreParts parts, const TextSink& sink);
/// The same in one piece.
std::string MusicXmlText(ScoreParts parts);
inline std::string MusicXmlText(const ScoreModel& score) {
    return MusicXmlText(AsParts(score));
}

/// The same, compressed into the bytes of an .mxl container. Empty when the container could not be made;
/// `why` then says what went wrong.
std::string CompressedMusicXml(ScoreParts parts, std::string& why);

} // namespace Score
