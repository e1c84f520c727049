#include "Projects/Score/MusicXmlPart.h"

#include "Projects/Score/Beams.h"
#include "Projects/Score/ChordName.h"
#include "Projects/Score/MusicXmlMarks.h"
#include "Projects/Score/MusicXmlWay.h"
#include "Projects/Score/Spelling.h"
#include "Projects/Score/Utf8.h"
#include "Projects/Score/XmlNodes.h"

#include <algorithm>
#include <array>
#include <bit>
#include <set>
#include <string>
#include <utility>

namespace Score {

using pugi::xml_node;
using XmlNodes::Add;
using XmlNodes::Set;

namespace {

// The written name of a power-of-two duration in score units.
const char* NoteType(int duration) {
    // From one score unit up: a whole note has 1024.
    static constexpr std::array<const char*, 14> kTypes{"1024th", "512th", "256th",  "128th",   "64th",
                                                        "32nd",   "16th",  "eighth", "quarter", "half",
                                                        "whole",  "breve", "long",   "maxima"};
    const int exponent = static_cast<int>(std::bit_width(static_cast<unsigned>(std::max(duration, 1)))) - 1;
    return kTypes[static_cast<std::size_t>(std::min(exponent, static_cast<int>(kTypes.size()) - 1))];
}

const char* BeamText(Beam beam) {
    switch (beam) {
    case Beam::Begin:
        return "begin";
    case Beam::Continue:
        return "continue";
    case Beam::End:
        return "end";
    case Beam::ForwardHook:
        return "forward hook";
    default:
        return "backward hook";
    }
}

} // namespace

class MusicXmlPart::Writer {
public:
    Writer(const ScoreModel& score, std::vector<WrittenBar> bars, bool isTop)
        : m_Score(score), m_Bars(std::move(bars)), m_Tuning(&score.Tuning), m_Way(score, isTop) {}

    void WriteMeasure(xml_node part, std::size_t bar) {
        if (m_Score.Bars.empty())
            WriteEmptyMeasure(part);
        else
            WriteBar(part, bar);
    }

private:
    void WriteEmptyMeasure(xml_node part) const {
        xml_node measure = Add(part, "measure");
        Set(measure, "number", "1");
        WriteAttributes(measure, &m_Score.FirstTimeSignature);
    }

    void WriteBar(xml_node part, std::size_t index) {
        const ModelBar& bar = m_Score.Bars[index];
        xml_node measure = Add(part, "measure");
        WriteNumber(measure, index);
        if (bar.Tuning)
            m_Tuning = &*bar.Tuning;
        if (index == 0)
            WriteAttributes(measure, bar.TimeSignature ? &*bar.TimeSignature : &m_Score.FirstTimeSignature);
        else if (bar.TimeSignature || bar.Tuning)
            WriteChanges(Add(measure, "attributes"), bar);
        m_Way.WriteBarStart(measure, index);
        for (const std::string& label : bar.Labels) {
            xml_node direction = Add(measure, "direction");
            Set(direction, "placement", "above");
            Add(Add(direction, "direction-type"), "rehearsal", ToUtf8(label));
        }
        WriteMusic(measure, bar, m_Bars[index]);
        m_Way.WriteBarEnd(measure, index);
    }

    // Bars count from the one after a pickup.
    void WriteNumber(xml_node measure, std::size_t index) const {
        const bool hasPickup = m_Bars.front().IsPickup;
        Set(measure, "number", std::to_string(hasPickup ? index : index + 1));
        if (hasPickup && index == 0)
            Set(measure, "implicit", "yes");
    }

    void WriteAttributes(xml_node measure, const ModelTimeSignature* time) const {
        xml_node attributes = Add(measure, "attributes");
        Add(attributes, "divisions", kUnitsPerCrotchet);
        WriteTime(attributes, *time);
        WriteStrings(attributes);
    }

    void WriteChanges(xml_node attributes, const ModelBar& bar) const {
        if (bar.TimeSignature)
            WriteTime(attributes, *bar.TimeSignature);
        if (bar.Tuning)
            WriteStrings(attributes);
    }

    void WriteStrings(xml_node attributes) const {
        xml_node clef = Add(attributes, "clef");
        Add(clef, "sign", std::string("TAB"));
        Add(clef, "line", static_cast<int>(m_Tuning->size()) / 2 + 2);
        xml_node details = Add(attributes, "staff-details");
        Add(details, "staff-lines", static_cast<int>(m_Tuning->size()));
        for (std::size_t string = 0; string < m_Tuning->size(); ++string) {
            const SpelledPitch pitch = SpellMidi((*m_Tuning)[string]);
            xml_node tuning = Add(details, "staff-tuning");
            Set(tuning, "line", std::to_string(string + 1));
            Add(tuning, "tuning-step", std::string(1, pitch.Step));
            if (pitch.Alter != 0)
                Add(tuning, "tuning-alter", pitch.Alter);
            Add(tuning, "tuning-octave", pitch.Octave);
        }
        MusicXmlMarks::WriteCapo(details, m_Score.Heading);
    }

    void WriteTime(xml_node attributes, const ModelTimeSignature& time) const {
        xml_node node = Add(attributes, "time");
        if (!m_Score.HasRhythms) {
            Set(node, "print-object", "no");
            Add(node, "senza-misura");
            return;
        }
        Add(node, "beats", time.Numerator);
        Add(node, "beat-type", time.Denominator);
    }

    void WriteMusic(xml_node measure, const ModelBar& bar, const WrittenBar& written) {
        const std::vector<std::vector<Beam>> beams = BeamsOf(written);
        std::size_t chord = 0;
        for (std::size_t index = 0; index < written.Pieces.size(); ++index) {
            const WrittenPiece& piece = written.Pieces[index];
            const int end = piece.Position + piece.GetDuration();
            for (; chord < bar.ChordSymbols.size() && written.ChordPositions[chord] < end; ++chord)
                WriteHarmony(measure, bar.ChordSymbols[chord],
                             written.ChordPositions[chord] - piece.Position);
            if (!written.IsRest())
                WritePiece(measure, piece, beams[index]);
        }
        for (; chord < bar.ChordSymbols.size(); ++chord)
            WriteHarmony(measure, bar.ChordSymbols[chord], 0);
        if (written.IsRest() && m_Score.HasRhythms)
            WriteWholeBarRest(measure, written.Length);
        else if (written.IsRest())
            Add(Add(measure, "forward"), "duration", written.Length);
        else if (written.Pieces.empty() && bar.Length > 0)
            WriteWholeBarRest(measure, bar.Length);
    }

    void WriteWholeBarRest(xml_node measure, int length) {
        xml_node note = Add(measure, "note");
        // Where nobody knows how long anything lasts, an empty bar shows nothing.
        if (!m_Score.HasRhythms)
            Set(note, "print-object", "no");
        Set(Add(note, "rest"), "measure", "yes");
        Add(note, "duration", length);
        Add(note, "voice", 1);
        m_OpenTies.clear();
    }

    // Without rhythms it is room for what other parts have.
    void WriteRest(xml_node measure, const WrittenPiece& piece) const {
        xml_node node = Add(measure, m_Score.HasRhythms ? "note" : "forward");
        if (m_Score.HasRhythms)
            Add(node, "rest");
        Add(node, "duration", piece.GetDuration());
        if (m_Score.HasRhythms)
            WriteValue(node, piece);
    }

    void WritePiece(xml_node measure, const WrittenPiece& piece, const std::vector<Beam>& beams) {
        std::set<std::pair<int, int>> tiedFrom;
        if (piece.Notes == nullptr) {
            WriteRest(measure, piece);
        } else {
            for (std::size_t index = 0; index < piece.Notes->size(); ++index) {
                const ModelNote& note = (*piece.Notes)[index];
                WriteNote(measure, piece, index, beams);
                if (piece.IsTied[index])
                    tiedFrom.insert({note.String, note.Midi});
            }
        }
        m_OpenTies = std::move(tiedFrom);
    }

    static void WriteValue(xml_node note, const WrittenPiece& piece) {
        Add(note, "voice", 1);
        Add(note, "type", std::string(NoteType(piece.Value)));
        for (int dot = 0; dot < piece.Dots; ++dot)
            Add(note, "dot");
    }

    void WriteNote(xml_node measure, const WrittenPiece& piece, std::size_t index,
                   const std::vector<Beam>& beams) {
        const ModelNote& model = (*piece.Notes)[index];
        const TieEnds ties{m_OpenTies.count({model.String, model.Midi}) != 0, piece.IsTied[index]};
        xml_node note = Add(measure, "note");
        if (index > 0)
            Add(note, "chord");
        WritePitch(note, model);
        Add(note, "duration", piece.GetDuration());
        WriteTies(note, "tie", ties);
        WriteValue(note, piece);
        if (!m_Score.HasRhythms)
            Add(note, "stem", std::string("none"));
        MusicXmlMarks::WriteNotehead(note, model);
        for (std::size_t level = 0; level < beams.size() && index == 0; ++level)
            Set(Add(note, "beam", std::string(BeamText(beams[level]))), "number", std::to_string(level + 1));
        WriteNotations(note, model, ties);
        MusicXmlMarks::WritePlay(note, model);
    }

    static void WritePitch(xml_node note, const ModelNote& model) {
        const SpelledPitch spelled = Spell(model.Midi, model.Diat);
        xml_node pitch = Add(note, "pitch");
        Add(pitch, "step", std::string(1, spelled.Step));
        if (spelled.Alter != 0)
            Add(pitch, "alter", spelled.Alter);
        Add(pitch, "octave", spelled.Octave);
    }

    // Of one note: a tie ends at it, and one begins.
    struct TieEnds {
        bool Stops;
        bool Starts;
    };

    static void WriteTies(xml_node parent, const char* element, const TieEnds& ties) {
        if (ties.Stops)
            Set(Add(parent, element), "type", "stop");
        if (ties.Starts)
            Set(Add(parent, element), "type", "start");
    }

    void WriteNotations(xml_node note, const ModelNote& model, const TieEnds& ties) {
        // A stave of the text that is tuned lower than the first one may give notes that its stave type has
        // no fret for.
        const bool hasFret = model.Fret >= 0;
        const bool hasMarks = !ties.Stops && m_Marks.HasNotations(model);
        if (!hasFret && !hasMarks && !ties.Stops && !ties.Starts)
            return;
        xml_node notations = Add(note, "notations");
        WriteTies(notations, "tied", ties);
        if (!hasFret && !hasMarks)
            return;
        xml_node technical = Add(notations, "technical");
        if (hasMarks)
            m_Marks.WriteNotations(notations, technical, model);
        if (!hasFret)
            return;
        // Strings count from 1 at the highest.
        Add(technical, "string", static_cast<int>(m_Tuning->size()) - model.String);
        Add(technical, "fret", model.Fret);
    }

    // `offset` is from the next note on.
    void WriteHarmony(xml_node measure, const ModelText& symbol, int offset) const {
        const ChordName name = ChordName::Parse(symbol.Text);
        xml_node harmony = Add(measure, "harmony");
        xml_node root = Add(harmony, "root");
        Add(root, "root-step", std::string(1, name.Root.Step));
        if (name.Root.Alter != 0)
            Add(root, "root-alter", name.Root.Alter);
        xml_node kind = Add(harmony, "kind", name.Kind);
        Set(kind, "text", ToUtf8(SuffixOf(symbol.Text, name)));
        if (name.HasBass) {
            xml_node bass = Add(harmony, "bass");
            Add(bass, "bass-step", std::string(1, name.Bass.Step));
            if (name.Bass.Alter != 0)
                Add(bass, "bass-alter", name.Bass.Alter);
        }
        for (const ChordDegree& degree : name.Degrees) {
            xml_node node = Add(harmony, "degree");
            // The text of the kind shows it already.
            Set(node, "print-object", "no");
            Add(node, "degree-value", degree.Value);
            Add(node, "degree-alter", degree.Alter);
            Add(node, "degree-type", std::string(degree.How == ChordDegree::Change::Add ? "add" : "alter"));
        }
        if (offset > 0)
            Add(harmony, "offset", offset);
    }

    // What stands between root and bass: readers write root and bass themselves.
    static std::string SuffixOf(const std::string& text, const ChordName& name) {
        if (name.Kind == "none")
            return text;
        const std::size_t root = name.Root.Alter == 0 ? 1 : 2;
        const std::size_t bass = name.HasBass ? (name.Bass.Alter == 0 ? 2U : 3U) : 0U;
        return text.substr(root, text.size() - root - bass);
    }

    const ScoreModel& m_Score;
    std::vector<WrittenBar> m_Bars;
    // Of the present bar.
    const std::vector<int>* m_Tuning;
    MusicXmlWay m_Way;
    MusicXmlMarks m_Marks;
    // String and pitch of the notes that are tied into the next piece.
    std::set<std::pair<int, int>> m_OpenTies;
};

MusicXmlPart::MusicXmlPart(const ScoreModel& score, std::vector<WrittenBar> bars, bool isTop)
    : m_Writer(std::make_unique<Writer>(score, std::move(bars), isTop)),
      m_Count(std::max<std::size_t>(score.Bars.size(), 1)) {}

MusicXmlPart::~MusicXmlPart() = default;

std::size_t MusicXmlPart::CountMeasures() const {
    return m_Count;
}

void MusicXmlPart::WriteMeasure(xml_node parent, std::size_t measure) {
    m_Writer->WriteMeasure(parent, measure);
}

} // namespace Score
