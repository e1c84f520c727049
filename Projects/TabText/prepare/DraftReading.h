#pragma once

#include "Projects/Fretline/shell/FretlineOptions.h"
#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Projects/TabText/ReadingMessages.h"

namespace TabText {

class Draft;

/// What the plug-in would take for what in a draft as it is now. A copy: later edits of the draft do not
/// change it. Costs in proportion to the text.
class DraftReading {
public:
    explicit DraftReading(const Draft& draft);
    DraftReading(const DraftReading&) = delete;
    DraftReading& operator=(const DraftReading&) = delete;

    const Fretline::TabFile& GetFile() const { return m_File; }
    const Fretline::TabAnalysis& GetAnalysis() const { return m_Analysis; }
    const std::vector<std::unique_ptr<Fretline::TabStave>>& GetStaves() const {
        return m_Analysis.GetStaves();
    }
    bool IsStaveLine(int line) const { return m_Analysis.IsStaveLine(line); }
    /// Reads all bars, so that they know their rhythm line, their chords and their columns. At most once.
    void ReadBars();

private:
    /// As they are where nobody has chosen any.
    Fretline::FretlineOptions m_Options{Nvr::String()};
    ReadingMessages m_Messages;
    Fretline::TabFile m_File;
    Fretline::TabAnalysis m_Analysis;
};

/// How long the bar is by its time signature, in score units; a whole note without one.
int LengthByMetre(const Fretline::TabBar& bar);

/// Lines of the text that belong to a stave: those of its strings, and those about it.
struct StaveSurroundings {
    int FirstLine = 0;
    /// After the last of the strings.
    int EndLine = 0;
    /// From here up to FirstLine stand chords, rhythm, labels and words above it,
    int FirstAbove = 0;
    /// and from EndLine up to here what touches it from below.
    int EndBelow = 0;
};

/// For each stave of the reading. No line belongs to two: what touches the stave above and not this one is
/// the other's.
std::vector<StaveSurroundings> SurroundingsOf(const Draft& draft, const DraftReading& reading);

} // namespace TabText
