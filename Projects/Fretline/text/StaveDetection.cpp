#include "Projects/Fretline/text/StaveDetection.h"

#include "Projects/Fretline/resources/ResourceNumbers.h"
#include "Projects/Fretline/text/TabChars.h"
#include "Projects/Fretline/text/TabFile.h"

#include <algorithm>
#include <string_view>

namespace Fretline {

namespace {

// A real stave line has at least this share of the largest hyphen count of its run, in percent,
constexpr int kShareOfHyphens = 65;
// or at most this share of the average blank count.
constexpr int kShareOfBlanks = 120;

constexpr int kMessageKind = 4;

bool IsBlank(char c) {
    return c == '\0' || Nvr::Ascii::IsSpace(c);
}

// Whole-number arithmetic, as all of the test. Wide enough for any count of characters.
long long PercentOf(long long percent, long long count) {
    return count * percent / 100;
}

// As the user counts, from 1.
Nvr::String LineNumber(int line) {
    return Nvr::String::FromInt(line + 1);
}

void ReportLineIgnored(const TabFile& file, int line) {
    const Nvr::ResId id(kMessageLineIgnored);
    file.GetOutput()->Report(id, kMessageKind, Nvr::String(id, LineNumber(line)), true);
}

void ReportLinesIgnored(const TabFile& file, const LineRun& run) {
    const Nvr::ResId id(kMessageLinesIgnored);
    file.GetOutput()->Report(id, kMessageKind,
                             Nvr::String(id, LineNumber(run.m_First), LineNumber(run.m_Last)), true);
}

// The line with the most hyphens always passes, so a line remains.
void Trim(const TabFile& file, LineRun& run) {
    const RunStatistics statistics(file, run);
    for (; !statistics.IsRealStaveLine(run.m_First); ++run.m_First)
        ReportLineIgnored(file, run.m_First);
    for (; !statistics.IsRealStaveLine(run.m_Last); --run.m_Last)
        ReportLineIgnored(file, run.m_Last);
}

int LongestLineOf(const TabFile& file, const LineRun& run) {
    int width = 0;
    for (int line = run.m_First; line <= run.m_Last; ++line)
        width = std::max(width, file.GetLineLength(line));
    return width;
}

} // namespace

bool IsStaveLineCandidate(std::string_view line) {
    int hyphens = 0;
    for (std::size_t at = line.find('-'); at != std::string_view::npos; at = line.find('-', at + 1))
        if (++hyphens == kFewestHyphensOfACandidate)
            return true;
    return false;
}

bool TrimToStave(const TabFile& file, LineRun& run) {
    if (run.GetLineCount() >= kFewestLinesOfARun)
        Trim(file, run);
    if (run.GetLineCount() >= kFewestLinesOfARun)
        return true;
    ReportLinesIgnored(file, run);
    return false;
}

RunStatistics::RunStatistics(const TabFile& file, const LineRun& run)
    : m_FirstLine(run.m_First), m_Lines(static_cast<std::size_t>(run.GetLineCount())) {
    const int width = LongestLineOf(file, run);
    CountCharacters(file, run, width);
    FindLetterLines(file, run, width);
}

void RunStatistics::CountCharacters(const TabFile& file, const LineRun& run, int width) {
    long long blanksOfRun = 0;
    for (int line = run.m_First; line <= run.m_Last; ++line) {
        const std::string_view text = file.GetLine(line);
        LineCounts& counts = m_Lines[static_cast<std::size_t>(line - m_FirstLine)];
        counts.m_Hyphens = static_cast<int>(std::count_if(text.begin(), text.end(), IsDash));
        // Counted, not walked: a short line may stand beside one of a million characters.
        const int missing = width - static_cast<int>(text.size());
        counts.m_Blanks = missing + static_cast<int>(std::count_if(text.begin(), text.end(), IsBlank));
        m_LargestHyphenCount = std::max(m_LargestHyphenCount, counts.m_Hyphens);
        blanksOfRun += counts.m_Blanks;
    }
    m_AverageBlankCount = blanksOfRun / run.GetLineCount();
}

void RunStatistics::FindLetterLines(const TabFile& file, const LineRun& run, int width) {
    std::vector<int> lettersOfColumn(static_cast<std::size_t>(width));
    for (int line = run.m_First; line <= run.m_Last; ++line) {
        const std::string_view text = file.GetLine(line);
        for (std::size_t column = 0; column < text.size(); ++column)
            if (IsNoteLetter(text[column]))
                ++lettersOfColumn[column];
    }
    const auto most = std::max_element(lettersOfColumn.begin(), lettersOfColumn.end());
    if (most == lettersOfColumn.end() || *most == 0)
        return;
    const int letterColumn = static_cast<int>(most - lettersOfColumn.begin());
    for (int line = run.m_First; line <= run.m_Last; ++line)
        m_Lines[static_cast<std::size_t>(line - m_FirstLine)].m_HasLetter =
            IsNoteLetter(file.GetChar(line, letterColumn));
}

bool RunStatistics::IsRealStaveLine(int line) const {
    const LineCounts& counts = At(line);
    return counts.m_Hyphens >= PercentOf(kShareOfHyphens, m_LargestHyphenCount) ||
           counts.m_Blanks <= PercentOf(kShareOfBlanks, m_AverageBlankCount) || counts.m_HasLetter;
}

} // namespace Fretline
