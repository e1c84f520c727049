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

// Writes the parts of one file.
class Writer {
public:
    Writer(const ScoreModel& score, const std::string& title, Layout layout, bool isOnePage)
        : m_Score(score), m_Bars(WriteOut(score)), m_Breaks(LineBreaks(score, m_Bars)), m_Title(title),
          m_Layout(layout), m_IsOnePage(isOnePage), m_LacksFrets(HasNoteWithoutFret(score)) {}

    std::string Write() {
        FindSections();
        std::string text = "\\version \"2.24.0\"\n\\language \"english\"\n\n" + Header();
        if (m_IsOnePage)
            text += "\\paper {\n  page-breaking = #ly:one-page-breaking\n}\n\n";
        text += LilyPondMarks(m_Score) + Chords() + Music("", false);
        // A note that a string cannot give has no place on the stave of tab.
        if (m_LacksFrets && m_Layout != Layout::Notes)
            text += Music("Tab", true);
        return text + Book();
    }

private:
    static bool HasNoteWithoutFret(const ScoreModel& score) {
        for (const ModelBar& bar : score.Bars)
            for (const ModelEvent& event : bar.Events)
                for (const ModelNote& note : event.Notes)
                    if (note.Fret < 0)
                        return true;
        return false;
    }

    std::string Header() const {
        const ModelHeading& heading = m_Score.Heading;
        std::string text =
            "\\header {\n  title = " + QuotedText(heading.Title.empty() ? m_Title : ToUtf8(heading.Title)) +
            "\n";
        if (!heading.Artist.empty())
            text += "  composer = " + QuotedText(ToUtf8(heading.Artist)) + "\n";
        if (heading.Capo > 0)
            text += Numbered("  meter = \"Capo ", heading.Capo) + "\"\n";
        return text + "  tagline = ##f\n}\n\n";
    }

    void FindSections() {
        std::set<std::string> taken{"all", "tuning", "music", "language"};
        for (std::size_t bar = 0; bar < m_Score.Bars.size(); ++bar) {
            const std::vector<std::string>& labels = m_Score.Bars[bar].Labels;
            if (bar != 0 && labels.empty())
                continue;
            const std::string name = labels.empty() ? "opening" : LettersOf(labels.front()) + "Section";
            m_Sections.push_back({FreeName(name, taken), bar, 0});
        }
        for (std::size_t i = 0; i < m_Sections.size(); ++i)
            m_Sections[i].End = i + 1 < m_Sections.size() ? m_Sections[i + 1].First : m_Score.Bars.size();
    }

    // The chord symbols, in a context of their own above the staves; nothing for a score without any.
    std::string Chords() const {
        if (m_Score.CountChordSymbols() == 0)
            return {};
        std::string text;
        std::string all;
        for (const Section& section : m_Sections) {
            text += section.Variable + "Chords = \\chordmode {\n";
            for (std::size_t bar = section.First; bar < section.End; ++bar)
                if (const int length = LengthOf(m_Bars[bar]); length > 0)
                    text += "  " + LilyPondChords(m_Score.Bars[bar], m_Bars[bar], length) + "| % " +
                            NumberOf(bar) + "\n";
            text += "}\n\n";
            all += "  \\" + section.Variable + "Chords\n";
        }
        const bool hasNames = text.find("\\named ") != std::string::npos;
        return (hasNames ? LilyPondChordNaming() : "") + text + "allChords = {\n" + all + "}\n\n";
    }

    // As the engraved score counts: from the bar after a pickup.
    std::string NumberOf(std::size_t bar) const {
        return std::to_string(m_Bars.front().IsPickup ? bar : bar + 1);
    }

    std::string Music(const std::string& suffix, bool isForTab) {
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
        if (heading.Tempo > 0)
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
        text += LilyPondBarStart(m_Score, index);
        text += "  ";
        for (std::size_t piece = 0; piece < written.Pieces.size() && !written.IsRest(); ++piece)
            text += notes.Piece(written.Pieces[piece],
                                written.Pieces[piece].IsStruck ? NextPiece(index, piece) : nullptr) +
                    " ";
        if (written.IsRest())
            text += "R" + LengthText(written.Length) + " ";
        else if (written.Pieces.empty())
            text += "s" + LengthText(LengthOf(written)) + " ";
        text += "| % " + NumberOf(index) + "\n";
        return text + LilyPondBarEnd(m_Score, index) + (m_Breaks[index] ? "  \\break\n" : "");
    }

    // The next one that is struck or a rest; null at the end.
    const WrittenPiece* NextPiece(std::size_t bar, std::size_t piece) const {
        for (++piece; bar < m_Bars.size(); ++bar, piece = 0)
            for (; piece < m_Bars[bar].Pieces.size(); ++piece)
                if (m_Bars[bar].Pieces[piece].IsStruck)
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

    std::string Book() const {
        const bool hasChords = m_Score.CountChordSymbols() > 0;
        return "tuning = " + StringTuning(m_Score.Tuning) + "\n\n\\score {\n  <<\n" +
               (hasChords ? ChordNames() : "") + "    \\new StaffGroup <<\n" +
               (m_Layout != Layout::Tab ? NoteStave() : "") + (m_Layout != Layout::Notes ? TabStave() : "") +
               "    >>\n  >>\n  \\layout {\n    indent = " +
               (m_Layout == Layout::Tab ? "0" : kRoomForTheName) + "\n  }\n" +
               (hasChords ? SilentChords() : "  \\midi { }\n") + "}\n";
    }

    static const char* ChordNames() {
        return R"(    \new ChordNames \with {
      majorSevenSymbol = "maj7"
    } \allChords
)";
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

    std::string NoteStave() const {
        const bool isBass = m_Score.Tuning.size() == static_cast<std::size_t>(kStringsOfABass);
        return "      \\new Staff \\with {\n        instrumentName = " +
               QuotedText(ToUtf8(m_Score.InstrumentName)) +
               "\n        \\omit StringNumber\n      } {\n        \\clef \"" +
               (isBass ? "bass_8" : "treble_8") + "\"\n        " +
               (ChangesTuning() ? "\\removeWithTag #'tab " : "") + "\\all\n      }\n";
    }

    std::string TabStave() const {
        return std::string("      \\new TabStaff \\with {\n        stringTunings = \\tuning\n      } {\n") +
               (m_Layout == Layout::Tab ? "        \\tabFullNotation\n" : "") +
               (m_LacksFrets ? "        \\allTab\n" : "        \\all\n") + "      }\n";
    }

    const ScoreModel& m_Score;
    std::vector<WrittenBar> m_Bars;
    std::vector<bool> m_Breaks;
    std::string m_Title;
    Layout m_Layout;
    bool m_IsOnePage;
    bool m_LacksFrets;
    std::vector<Section> m_Sections;
    // Of the bar before; 0 before the first.
    int m_Length = 0;
};

} // namespace

std::string LilyPondText(const ScoreModel& score, const std::string& title, Layout layout, bool isOnePage) {
    return Writer(score, title, layout, isOnePage).Write();
}

} // namespace Score
