#pragma once

#include "Projects/Score/ScoreModel.h"

#include <pugixml.hpp>

#include <map>
#include <vector>

namespace Score {

/// Writes what players wrote between the frets into a MusicXML part; keeps what goes on from a note to the
/// next on its string. A score without any of it gets nothing.
class MusicXmlMarks {
public:
    /// The title, before the identification of the document.
    static void WriteWork(pugi::xml_node root, const ModelHeading& heading);
    /// The artist, first in the identification.
    static void WriteCreator(pugi::xml_node identification, const ModelHeading& heading);
    /// The capo, after the tunings.
    static void WriteCapo(pugi::xml_node staffDetails, const ModelHeading& heading);
    /// The head of a note, after its stem.
    static void WriteNotehead(pugi::xml_node note, const ModelNote& model);
    /// How a player program mutes it, at the end of the note.
    static void WritePlay(pugi::xml_node note, const ModelNote& model);
    /// True when the note has something to write among its notations.
    bool HasNotations(const ModelNote& model) const;
    /// What stands beside `technical`, and inside it before string and fret. Once for every note that begins
    /// to sound, in the order of the score. `technical` is not null.
    void WriteNotations(pugi::xml_node notations, pugi::xml_node technical, const ModelNote& model);

private:
    void StopAt(pugi::xml_node notations, pugi::xml_node technical, const ModelNote& model);

    /// By string: what leads from its last note to the next.
    std::map<int, std::vector<Technique>> m_Open;
};

} // namespace Score
