#include "Projects/Score/MusicXml.h"

#include "Projects/Score/MusicXmlMarks.h"
#include "Projects/Score/MusicXmlPart.h"
#include "Projects/Score/Notation.h"
#include "Projects/Score/Utf8.h"
#include "Projects/Score/XmlNodes.h"

#include <pugixml.hpp>

#include <algorithm>
#include <string_view>
#include <utility>

namespace Score {

namespace {

using pugi::xml_node;
using XmlNodes::Add;
using XmlNodes::Set;

constexpr const char* kVersion = "4.0";
constexpr const char* kIndent = "  ";
constexpr std::string_view kRootEnd = "</score-partwise>\n";

// Collects what is printed in small pieces, to be passed on in large ones.
class PieceWriter : public pugi::xml_writer {
public:
    explicit PieceWriter(const TextSink& sink) : m_Sink(sink) {}

    void write(const void* data, std::size_t size) override { Add({static_cast<const char*>(data), size}); }
    void Add(std::string_view text) { m_Piece += text; }
    // Of what was not passed on yet.
    void RemoveEnd(std::size_t size) { m_Piece.resize(m_Piece.size() - size); }
    void PassOnWhenLarge() {
        if (m_Piece.size() >= kLarge)
            PassOn();
    }
    void PassOn() {
        m_Sink(m_Piece);
        m_Piece.clear();
    }

private:
    // A usual score is one piece.
    static constexpr std::size_t kLarge = 1UL << 20;

    const TextSink& m_Sink;
    std::string m_Piece;
};

std::string PartId(std::size_t part) {
    return "P" + std::to_string(part + 1);
}

void WritePartOfList(xml_node list, const ScoreModel& score, std::size_t index) {
    // One of them is that of drums.
    constexpr std::size_t kDrumChannel = 10;
    constexpr std::size_t kChannels = 16;
    const std::string instrumentId = PartId(index) + "-I1";
    xml_node part = Add(list, "score-part");
    Set(part, "id", PartId(index));
    Add(part, "part-name", ToUtf8(score.InstrumentName));
    Add(part, "part-abbreviation", ToUtf8(score.ShortName));
    xml_node instrument = Add(part, "score-instrument");
    Set(instrument, "id", instrumentId);
    Add(instrument, "instrument-name", ToUtf8(score.InstrumentName));
    xml_node midi = Add(part, "midi-instrument");
    Set(midi, "id", instrumentId);
    Add(midi, "midi-channel",
        static_cast<int>(std::min(index + 1 < kDrumChannel ? index + 1 : index + 2, kChannels)));
    // Programs count from 1 here.
    Add(midi, "midi-program", score.Program + 1);
}

// Measure by measure: the tree of a long part takes many times the memory of its text.
void WriteMeasures(MusicXmlPart& part, PieceWriter& writer) {
    constexpr unsigned kDepth = 2;
    pugi::xml_document document;
    for (std::size_t measure = 0; measure < part.CountMeasures(); ++measure) {
        document.reset();
        part.WriteMeasure(document, measure);
        document.first_child().print(writer, kIndent, pugi::format_default, pugi::encoding_utf8, kDepth);
        writer.PassOnWhenLarge();
    }
}

// All but the parts.
void WriteFrame(ScoreParts parts, pugi::xml_document& document) {
    xml_node declaration = document.append_child(pugi::node_declaration);
    Set(declaration, "version", "1.0");
    Set(declaration, "encoding", "UTF-8");
    document.append_child(pugi::node_doctype)
        .set_value("score-partwise PUBLIC \"-//Recordare//DTD MusicXML 4.0 Partwise//EN\" "
                   "\"http://www.musicxml.org/dtds/partwise.dtd\"");
    xml_node root = Add(document, "score-partwise");
    Set(root, "version", kVersion);
    const ModelHeading& heading = parts.front().Heading;
    MusicXmlMarks::WriteWork(root, heading);
    xml_node identification = Add(root, "identification");
    MusicXmlMarks::WriteCreator(identification, heading);
    Add(Add(identification, "encoding"), "software", std::string("Fretline"));
    xml_node list = Add(root, "part-list");
    for (std::size_t index = 0; index < parts.size(); ++index)
        WritePartOfList(list, parts[index], index);
}

} // namespace

void WriteMusicXml(ScoreParts parts, const TextSink& sink) {
    PieceWriter writer(sink);
    {
        pugi::xml_document frame;
        WriteFrame(parts, frame);
        frame.save(writer, kIndent);
    }
    writer.RemoveEnd(kRootEnd.size());
    std::vector<std::vector<WrittenBar>> written = WriteOut(parts);
    for (std::size_t index = 0; index < parts.size(); ++index) {
        writer.Add(kIndent + ("<part id=\"" + PartId(index)) + "\">\n");
        MusicXmlPart part(parts[index], std::move(written[index]), index == 0);
        WriteMeasures(part, writer);
        writer.Add(kIndent + std::string("</part>\n"));
    }
    writer.Add(kRootEnd);
    writer.PassOn();
}

std::string MusicXmlText(ScoreParts parts) {
    std::string text;
    WriteMusicXml(parts, [&text](std::string_view piece) { text += piece; });
    return text;
}

} // namespace Score
