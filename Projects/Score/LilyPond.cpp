#include "Projects/Score/LilyPond.h"

#include "Projects/Fretline/score/Pitch.h"
#include "Projects/Score/LilyPondChords.h"
#include "Projects/Score/LilyPondNotes.h"
#include "Projects/Score/LilyPondWay.h"
#include "Projects/Score/LineBreaks.h"
#include "Projects/Score/Notation.h"
#include "Projects/Score/Spelling.h"
#include "Projects/Score/Utf8.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <set>

namespace Score {

namespace {

using Fretline::kStringsOfABass;

// Before the first staves.
constexpr const char* kRoomForTheName = "22\\mm";

// A stretch of bars under one label, in a variable of its own.
struct Section {
    std::string Variable;
    std::size_t First = 0;
    std::size_t End = 0;
};

std::string LettersOf(const std::string& label) {
    std::string letters;
    for (const char c : label)
        if (Nvr::Ascii::IsAlpha(c))
            letters += letters.empty() ? Nvr::Ascii::ToLower(c) : c;
    return letters.empty() ? "music" : letters;
}

// Variables are made of letters alone: of two with one name, the second is called "...B".
std::string FreeName(std::string name, std::set<std::string>& taken) {
    const std::string stem = name;
    for (char letter = 'B'; !taken.insert(name).second;
         letter = letter == 'Z' ? 'A' : static_cast<char>(letter + 1))
        name = (letter == 'A' ? name : stem == name || name.size() == stem.size() + 1 ? stem : name) + letter;
    return name;
}

// One part of a file, before its music is written.
struct PartSettings {
    /// Of the names of all that it defines; empty for a part by itself.
    std::string Suffix;
    bool IsTop = true;
    /// The file has others.
    bool IsNamed = false;
    Layout Staves = Layout::Both;
};

// Writes one part: the variables with its music, and the staves that show them.
class PartWriter {
public:
    PartWriter(const ScoreModel& score, const std::vector<WrittenBar>& bars, const std::vector<bool>& breaks,
               const std::vector<Section>& sections, PartSettings settings)
        : m_Score(score), m_Bars(bars), m_Breaks(breaks), m_Sections(sections),
          m_Settings(std::move(settings)), m_LacksFrets(HasNoteWithoutFret(score)) {}

    // What the staves refer to.
    std::string Variables() {
        std::string text = Chords() + Music("", false);
        // A note that a string cannot give has no place on the stave of tab.
        if (m_LacksFrets && m_Settings.Staves != Layout::Notes)
            text += Music("Tab", true);
        return text;
    }

    std::string Tuning() const {
        return "tuning" + m_Settings.Suffix + " = " + StringTuning(m_Score.Tuning) + "\n\n";
    }

    std::string Staves() const {
        return (HasChords() ? ChordNames() : "") + "    \\new StaffGroup <<\n" +
               (m_Settings.Staves != Layout::Tab ? NoteStave() : "") +
               (m_Settings.Staves != Layout::Notes ? TabStave() : "") + "    >>\n";
    }

private:
    bool HasChords() const { return m_Score.CountChordSymbols() > 0; }

    static bool HasNoteWithoutFret(const ScoreModel& score) {
        for (const ModelBar& bar : score.Bars)
            for (const ModelEvent& event : bar.Events)
                for (const ModelNote& note : event.Notes)
                    if (note.Fret < 0)
                        return true;
        return false;
    }

    // The chord symbols, in a context of their own above the staves; nothing for a score without any.
    std::string Chords() const {
        if (!HasChords())
            return {};
        std::string text;
        std::string all;
        for (const Section& section : m_Sections) {
            const std::string name = section.Variable + m_Settings.Suffix + "Chords";
            text += name + " = \\chordmode {\n";
            for (std::size_t bar = section.First; bar < section.End; ++bar)
                if (const int length = LengthOf(m_Bars[bar]); length > 0)
                    text += "  " + LilyPondChords(m_Score.Bars[bar], m_Bars[bar], length) + "| % " +
                            NumberOf(bar) + "\n";
            text += "}\n\n";
            all += "  \\" + name + "\n";
        }
        return text + "all" + m_Settings.Suffix + "Chords = {\n" + all + "}\n\n";
    }

    // As the engraved score counts: from the bar after a pickup.
    std::string NumberOf(std::size_t bar) const {
        return std::to_string(m_Bars.front().IsPickup ? bar : bar + 1);
    }

    std::string Music(const std::string& kind, bool isForTab) {
        const std::string suffix = m_Settings.Suffix + kind;
        LilyPondNotes notes(m_Score, isForTab);
        m_Length = 0;
        std::string text;
        std::string all;
        for (const Section& section : m_Sections) {
            text += section.Variable + suffix + " = {\n";
            for (std::size_t bar = section.First; bar < section.End; ++bar)
                text += Bar(bar, notes);
            text += "}\n\n";
            all += "  \\" + section.Variable + suffix + "\n";
        }
        // Where the last bar is repeated, its own barline says so.
        const bool endsInRepeat = !m_Score.Bars.empty() && m_Score.Bars.back().Repeats.IsEnd;
        return text + "all" + suffix + " = {\n" + Opening() + all + (endsInRepeat ? "" : "  \\bar \"|.\"\n") +
               "}\n\n";
    }

    // What holds from the start.
    std::string Opening() const {
        std::string text = LilyPondMuteLine(m_Score);
        const ModelHeading& heading = m_Score.Heading;
        if (heading.Tempo > 0 && m_Settings.IsTop)
            text += Numbered("  \\tempo 4 = ", heading.Tempo) + "\n";
        if (!m_Score.HasRhythms)
            text += "  \\omit Score.TimeSignature\n  \\omit Stem\n  \\omit Flag\n  \\omit Beam\n";
        return text;
    }

    std::string Bar(std::size_t index, LilyPondNotes& notes) {
        const ModelBar& bar = m_Score.Bars[index];
        const WrittenBar& written = m_Bars[index];
        if (written.Pieces.empty() && m_Score.HasRhythms)
            return {};
        std::string text = TimeOf(bar, written) + TuningOf(bar, notes);
        if (m_Settings.IsTop)
            text += LilyPondBarStart(m_Score, index);
        text += "  ";
        for (std::size_t piece = 0; piece < written.Pieces.size() && !written.IsRest(); ++piece)
            text += notes.Piece(written.Pieces[piece],
                                written.Pieces[piece].IsStruck ? NextPiece(index, piece) : nullptr) +
                    " ";
        if (written.IsRest() && m_Score.HasRhythms)
            text += "R" + LengthText(written.Length) + " ";
        else if (written.IsRest() || written.Pieces.empty())
            text += "s" + LengthText(LengthOf(written)) + " ";
        text += "| % " + NumberOf(index) + "\n";
        // What is of all parts stands in the top one.
        if (!m_Settings.IsTop)
            return text;
        return text + LilyPondBarEnd(m_Score, index) + (m_Breaks[index] ? "  \\break\n" : "");
    }

    // The next one that is struck or a rest, which without rhythms is none; null at the end.
    const WrittenPiece* NextPiece(std::size_t bar, std::size_t piece) const {
        for (++piece; bar < m_Bars.size(); ++bar, piece = 0)
            for (; piece < m_Bars[bar].Pieces.size(); ++piece)
                if (m_Bars[bar].Pieces[piece].IsStruck &&
                    (m_Score.HasRhythms || m_Bars[bar].Pieces[piece].Notes != nullptr))
                    return &m_Bars[bar].Pieces[piece];
        return nullptr;
    }

    // The metre where it changes, and the length of a bar that does not fill it.
    std::string TimeOf(const ModelBar& bar, const WrittenBar& written) {
        std::string text;
        const bool isFirst = m_Length == 0;
        if (m_Score.HasRhythms && (bar.TimeSignature || isFirst))
            text +=
                Numbered(Numbered("  \\time ", written.Metre.Numerator) + "/", written.Metre.Denominator) +
                "\n";
        if (bar.TimeSignature || isFirst)
            m_Length = m_Score.HasRhythms ? WrittenBar::LengthOf(written.Metre) : kUnitsPerWholeNote;
        if (written.IsPickup) {
            text += "  \\partial " + LengthText(written.Length) + "\n";
        } else if (LengthOf(written) != m_Length) {
            m_Length = LengthOf(written);
            text += "  \\set Timing.measureLength = #(ly:make-moment " + FractionText(m_Length) + ")\n";
        }
        return text;
    }

    static std::string StringTuning(const std::vector<int>& tuning) {
        std::string text = "\\stringTuning <";
        for (const int midi : tuning)
            text += " " + LilyPondPitch(SpellMidi(midi));
        return text + " >";
    }

    // Where the strings change, the stave of tab begins anew; that of notes leaves it out.
    static std::string TuningOf(const ModelBar& bar, LilyPondNotes& notes) {
        if (!bar.Tuning)
            return {};
        const std::size_t linesBefore = notes.GetTuning().size();
        notes.SetTuning(*bar.Tuning);
        return "  \\tag #'tab {\n" + BarlineOf(linesBefore, bar.Tuning->size()) +
               "    \\stopStaff\n    \\set TabStaff.stringTunings = " + StringTuning(*bar.Tuning) +
               "\n    \\startStaff\n  }\n";
    }

    // A barline is as high as the strings that begin at it. Before fewer strings it is to reach those that
    // end.
    static std::string BarlineOf(std::size_t linesBefore, std::size_t lines) {
        if (linesBefore <= lines)
            return {};
        constexpr int kHundredthsOfHalfASpace = 75;
        const int height = static_cast<int>(linesBefore - 1) * kHundredthsOfHalfASpace;
        const std::string text =
            std::to_string(height / 100) + "." + std::to_string(height % 100 + 100).substr(1);
        return "    \\once \\override TabStaff.BarLine.bar-extent = #'(-" + text + " . " + text + ")\n";
    }

    bool ChangesTuning() const {
        return std::any_of(m_Score.Bars.begin(), m_Score.Bars.end(),
                           [](const ModelBar& bar) { return bar.Tuning.has_value(); });
    }

    // A bar without anything in it is as long as one note where the order of the notes is all.
    int LengthOf(const WrittenBar& written) const {
        return written.Pieces.empty() && !m_Score.HasRhythms ? kUnitsPerCrotchet : written.Length;
    }

    std::string ChordNames() const {
        return R"(    \new ChordNames \with {
      majorSevenSymbol = "maj7"
    } \all)" + m_Settings.Suffix +
               "Chords\n";
    }

    std::string Named() const {
        return "        instrumentName = " + QuotedText(ToUtf8(m_Score.InstrumentName)) + "\n";
    }

    std::string NoteStave() const {
        const bool isBass = m_Score.Tuning.size() == static_cast<std::size_t>(kStringsOfABass);
        return "      \\new Staff \\with {\n" + Named() +
               "        \\omit StringNumber\n      } {\n        \\clef \"" +
               (isBass ? "bass_8" : "treble_8") + "\"\n        " +
               (ChangesTuning() ? "\\removeWithTag #'tab " : "") + "\\all" + m_Settings.Suffix +
               "\n      }\n";
    }

    std::string TabStave() const {
        const bool isNamed = m_Settings.IsNamed && m_Settings.Staves == Layout::Tab;
        return "      \\new TabStaff \\with {\n" + (isNamed ? Named() : "") +
               "        stringTunings = \\tuning" + m_Settings.Suffix + "\n      } {\n" +
               (m_Settings.Staves == Layout::Tab ? "        \\tabFullNotation\n" : "") + "        \\all" +
               m_Settings.Suffix + (m_LacksFrets ? "Tab" : "") + "\n      }\n";
    }

    const ScoreModel& m_Score;
    const std::vector<WrittenBar>& m_Bars;
    const std::vector<bool>& m_Breaks;
    const std::vector<Section>& m_Sections;
    PartSettings m_Settings;
    bool m_LacksFrets;
    // Of the bar before; 0 before the first.
    int m_Length = 0;
};

// Writes a file of parts.
class FileWriter {
public:
    FileWriter(ScoreParts parts, const std::string& title, Layout layout, bool isOnePage)
        : m_Parts(parts), m_Bars(WriteOut(parts)), m_Breaks(LineBreaks(parts.front(), m_Bars)),
          m_Title(title), m_Layout(layout), m_IsOnePage(isOnePage) {}

    std::string Write() {
        FindSections();
        std::string variables;
        std::string tunings;
        std::string staves;
        std::set<std::string> taken{"Chords", "Tab"};
        for (std::size_t index = 0; index < m_Parts.size(); ++index) {
            PartSettings settings{{}, index == 0, IsSeveral(), m_Layout};
            if (IsSeveral())
                settings.Suffix = FreeName(NameOf(m_Parts[index]), taken);
            PartWriter part(m_Parts[index], m_Bars[index], m_Breaks, m_Sections, std::move(settings));
            variables += part.Variables();
            tunings += part.Tuning();
            staves += part.Staves();
        }
        std::string text = "\\version \"2.24.0\"\n\\language \"english\"\n\n" + Header();
        if (m_IsOnePage)
            text += "\\paper {\n  page-breaking = #ly:one-page-breaking\n}\n\n";
        const bool hasNames = variables.find("\\named ") != std::string::npos;
        return text + LilyPondMarks(m_Parts) + (hasNames ? LilyPondChordNaming() : "") + variables + tunings +
               Book(staves);
    }

private:
    bool IsSeveral() const { return m_Parts.size() > 1; }

    static std::string NameOf(const ScoreModel& part) {
        std::string name = LettersOf(part.InstrumentName);
        name.front() = Nvr::Ascii::ToUpper(name.front());
        return name;
    }

    std::string Header() const {
        const ModelHeading& heading = m_Parts.front().Heading;
        std::string text =
            "\\header {\n  title = " + QuotedText(heading.Title.empty() ? m_Title : ToUtf8(heading.Title)) +
            "\n";
        if (!heading.Artist.empty())
            text += "  composer = " + QuotedText(ToUtf8(heading.Artist)) + "\n";
        if (const int capo = GetCapo(); capo > 0)
            text += Numbered("  meter = \"Capo ", capo) + "\"\n";
        return text + "  tagline = ##f\n}\n\n";
    }

    int GetCapo() const {
        int capo = 0;
        for (const ScoreModel& part : m_Parts)
            capo = std::max(capo, part.Heading.Capo);
        return capo;
    }

    void FindSections() {
        const std::vector<ModelBar>& bars = m_Parts.front().Bars;
        std::set<std::string> taken{"all", "tuning", "music", "language"};
        for (std::size_t bar = 0; bar < bars.size(); ++bar) {
            const std::vector<std::string>& labels = bars[bar].Labels;
            if (bar != 0 && labels.empty())
                continue;
            const std::string name = labels.empty() ? "opening" : LettersOf(labels.front()) + "Section";
            m_Sections.push_back({FreeName(name, taken), bar, 0});
        }
        for (std::size_t i = 0; i < m_Sections.size(); ++i)
            m_Sections[i].End = i + 1 < m_Sections.size() ? m_Sections[i + 1].First : bars.size();
    }

    std::string Book(const std::string& staves) const {
        const bool hasChords = std::any_of(m_Parts.begin(), m_Parts.end(), [](const ScoreModel& part) {
            return part.CountChordSymbols() > 0;
        });
        const bool hasNames = m_Layout != Layout::Tab || IsSeveral();
        return "\\score {\n  <<\n" + staves +
               "  >>\n  \\layout {\n    indent = " + (hasNames ? kRoomForTheName : "0") + "\n  }\n" +
               (hasChords ? SilentChords() : "  \\midi { }\n") + "}\n";
    }

    static const char* SilentChords() {
        return R"(  \midi {
    \context {
      \ChordNames
      \remove "Note_performer"
    }
  }
)";
    }

    ScoreParts m_Parts;
    std::vector<std::vector<WrittenBar>> m_Bars;
    std::vector<bool> m_Breaks;
    std::string m_Title;
    Layout m_Layout;
    bool m_IsOnePage;
    std::vector<Section> m_Sections;
};

} // namespace

std::string LilyPondText(ScoreParts parts, const std::string& title, Layout layout, bool isOnePage) {
    return FileWriter(parts, title, layout, isOnePage).Write();
}

} // namespace Score
