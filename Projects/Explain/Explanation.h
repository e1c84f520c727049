#pragma once

#include "Projects/TabText/LineMap.h"
#include "Projects/TabText/MarkingSigns.h"
#include "Projects/TabText/TabReading.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace Explain {

/// What a stretch of the text was taken for.
enum class Recognised {
    Nothing,
    StaveLine,
    Barline,
    TuningLetter,
    Fret,
    /// An "x" or a digit that gives a time but no note.
    MutedColumn,
    RhythmSymbol,
    ChordSymbol,
    /// A chord symbol that another one kept out of the score.
    LostChordSymbol,
    Label,
    /// A label that no bar took.
    LostLabel,
    TimeSignature,
    /// What players write between the frets, or above them.
    PlayingSign,
    IgnoredLine,
};

/// One line of the tab as it was read, with what each of its characters was taken for.
struct ExplainedLine {
    /// The line's number as the user knows it, from 1; 0 for a line that a preparation added.
    int Number = 0;
    /// In the tab's code page, tabs expanded.
    std::string Text;
    /// One entry a character.
    std::vector<Recognised> Marks;
    /// One entry a character: it belongs to something doubtful.
    std::vector<bool> IsDoubtful;
    /// Said below the line: why it was ignored, for example.
    std::vector<std::string> Notes;
    /// Said below it too: what is doubtful, and what can be tried.
    std::vector<std::string> Doubts;

    /// The column after the stretch of equal marks that begins at `column`.
    std::size_t EndOfStretch(std::size_t column) const;
};

/// What a bar of the text was read as, in sentences.
struct ExplainedBar {
    std::string Heading;
    std::vector<std::string> Notes;
};

/// A tab with what was recognised in it, and what of that is doubtful. The plug-in's own reading tells it;
/// nothing is read twice.
struct Explanation {
    std::vector<ExplainedLine> Lines;
    /// The bars of each stave, said below the stave's last line.
    struct Stave {
        int LastLine = 0;
        std::string Heading;
        std::vector<ExplainedBar> Bars;
    };
    std::vector<Stave> Staves;
    /// What players wrote beyond what a score holds, with its meaning: rows of TabText::SignTable.
    std::vector<TabText::SignRow> Signs;

    /// A tab that could not be read gives no lines. Of a text that was prepared, `map` gives the places as
    /// the user knows them: all numbers of lines and columns in the explanation are those.
    static Explanation Of(const TabText::TabReading& reading,
                          const std::optional<TabText::LineMap>& map = std::nullopt);
};

/// What was recognised: the one letter that stands for it where there is no colour, and its name.
struct RecognisedName {
    Recognised Kind;
    char Sign;
    const char* Name;
    /// The colour on a terminal, as the number of the terminal's own sequence.
    const char* TerminalStyle;
    /// For programs, and its class in a page.
    const char* Id;
};
const RecognisedName& NameOf(Recognised kind);
/// One for each kind, in the order of the enumeration.
std::span<const RecognisedName> AllRecognised();

/// What stands below doubtful characters where there is no colour, and before each doubt.
constexpr char kDoubtSign = '?';

/// The explanation for a terminal. Without `hasColour`, a line of signs stands below each line of the tab,
/// and one that marks what is doubtful.
std::string ExplanationText(const Explanation& explanation, bool hasColour);

/// The explanation as one page without scripts, readable in light and dark. `title` is UTF-8.
std::string ExplanationHtml(const Explanation& explanation, const std::string& title);

} // namespace Explain
