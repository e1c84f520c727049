#pragma once

#include "Projects/Score/ScoreModel.h"

#include <pugixml.hpp>

namespace Score {

/// Writes the way through a score into a MusicXML part: repeats, endings, jumps, tempos, the last barline.
/// Borrows the score. One that says nothing of it gets the last barline. A part that is not the top one has
/// the barlines alone.
class MusicXmlWay {
public:
    MusicXmlWay(const ScoreModel& score, bool isTop) : m_Score(score), m_IsTop(isTop) {}

    /// What stands before the notes of the bar, after its attributes: the barline, tempo, segno and coda.
    void WriteBarStart(pugi::xml_node measure, std::size_t bar) const;
    /// What stands after them: fine, jumps, the barline. Nothing follows it in its measure.
    void WriteBarEnd(pugi::xml_node measure, std::size_t bar) const;

private:
    void WriteLeftBarline(pugi::xml_node measure, std::size_t bar) const;
    void WriteRightBarline(pugi::xml_node measure, std::size_t bar) const;

    const ScoreModel& m_Score;
    bool m_IsTop;
};

} // namespace Score
