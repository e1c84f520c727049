#pragma once

#include "Projects/Score/Notation.h"
#include "Projects/Score/ScoreModel.h"

#include <pugixml.hpp>

#include <cstddef>
#include <memory>
#include <vector>

namespace Score {

/// Writes the measures of one MusicXML part, one after the other; keeps what goes from one to the next.
/// Borrows the score, whose written bars it takes. A part that is not the top one leaves out what is said
/// once for all.
class MusicXmlPart {
public:
    MusicXmlPart(const ScoreModel& score, std::vector<WrittenBar> bars, bool isTop);
    ~MusicXmlPart();
    MusicXmlPart(const MusicXmlPart&) = delete;
    MusicXmlPart& operator=(const MusicXmlPart&) = delete;

    /// At least one: a part without bars has an empty measure.
    std::size_t CountMeasures() const;
    /// REQUIRES: those before it have been written.
    void WriteMeasure(pugi::xml_node parent, std::size_t measure);

private:
    class Writer;
    std::unique_ptr<Writer> m_Writer;
    std::size_t m_Count;
};

} // namespace Score
