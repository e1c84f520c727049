#pragma once

#include <string_view>
#include <vector>

/// Stave detection: what makes a line a stave line is that it looks like one and stands among others that do.
///
/// TabAnalysis takes every line that IsStaveLineCandidate as a candidate, goes through the runs of candidates
/// that follow one another without a gap, lets TrimToStave drop what only resembles a stave, and cuts the
/// rest into staves.
namespace Fretline {

class TabFile;

constexpr int kFewestHyphensOfACandidate = 2;
/// Fewer lines, and a run is no stave: there is no plucked instrument of three strings to be read.
constexpr int kFewestLinesOfARun = 4;
/// The most strings that a stave can have; a longer run is cut into several staves.
constexpr int kMostLinesOfAStave = 6;

/// Consecutive lines that are all candidates.
struct LineRun {
    int m_First;
    int m_Last;

    int GetLineCount() const { return m_Last - m_First + 1; }
};

/// True when the line has two hyphens or more.
bool IsStaveLineCandidate(std::string_view line);

/// Takes lines that only resemble stave lines off both ends of the run. False when what is left is too short
/// for a stave, and none of it is to be used. Each line that is dropped is reported to the file's output.
bool TrimToStave(const TabFile& file, LineRun& run);

/// What a run of lines has in common, against which each of its lines is measured. Made once a run, and not
/// again when lines leave the run.
///
/// Every line counts as wide as the run's longest: what is missing is blank. Works in time and memory in
/// proportion to the text of the run, also when one line of it is very long.
class RunStatistics {
public:
    /// The run must have a line.
    RunStatistics(const TabFile& file, const LineRun& run);

    /// The line has hyphens enough, or few enough blanks, or a note letter where most lines of the run have
    /// one. `line` is one of the run.
    bool IsRealStaveLine(int line) const;

private:
    struct LineCounts {
        int m_Hyphens = 0;
        /// White space and zeros.
        int m_Blanks = 0;
        /// A note letter stands in the letter column.
        bool m_HasLetter = false;
    };

    const LineCounts& At(int line) const { return m_Lines[static_cast<std::size_t>(line - m_FirstLine)]; }
    void CountCharacters(const TabFile& file, const LineRun& run, int width);
    void FindLetterLines(const TabFile& file, const LineRun& run, int width);

    int m_FirstLine;
    int m_LargestHyphenCount = 0;
    long long m_AverageBlankCount = 0;
    std::vector<LineCounts> m_Lines;
};

} // namespace Fretline
