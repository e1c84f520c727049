#pragma once

#include "Shared/NotaveraAPI/ConverterOutput.h"
#include "Shared/Utils/ByteBuffer.h"
#include "Shared/Utils/NvrString.h"

#include <string_view>
#include <vector>

namespace Fretline {

class FretlineOptions;
class TabAnalysis;

/// The source file as a grid of characters: lines and absolute columns, both counted from 0, tabs expanded to
/// columns of eight. The only copy of the text; unchanged after construction.
///
/// Borrows the options, the output and the analysis. Characters are bytes as they stand in the file. A line
/// number outside the table raises std::out_of_range; columns are never negative.
class TabFile {
public:
    /// Reads the whole file. One that cannot be opened leaves a grid without lines, and nothing is reported.
    TabFile(const Nvr::String& path, const FretlineOptions* options, Nvr::ConverterOutput* output);
    TabFile(const TabFile&) = delete;
    TabFile& operator=(const TabFile&) = delete;

    int GetLineCount() const;
    /// The length of the longest line.
    int GetMaxLineLength() const { return m_MaxLineLength; }
    /// Without the line end.
    int GetLineLength(int line) const;
    /// The character; 0 at and beyond the line's end.
    char GetChar(int line, int column) const;
    /// First column from `start` on that holds `character`, else -1. Below GetMaxLineLength(), the space
    /// beyond the line's end holds 0.
    int FindChar(int line, int start, char character) const;
    /// Column of the first match of the lower-case `text`, else -1; case of the line is ignored. A character
    /// that breaks a match is not tried again as its first character.
    int FindText(int line, int start, std::string_view text) const;
    /// `length` bytes from `column`, which must lie in the line.
    Nvr::String GetText(int line, int column, int length) const;
    /// The whole line, without its end; valid as long as the file.
    std::string_view GetLine(int line) const;

    const FretlineOptions* GetOptions() const { return m_Options; }
    TabAnalysis* GetAnalysis() const { return m_Analysis; }
    Nvr::ConverterOutput* GetOutput() const { return m_Output; }
    void SetAnalysis(TabAnalysis* analysis) { m_Analysis = analysis; }

private:
    Nvr::ByteBuffer m_Text;
    std::vector<int> m_LineEnds;
    int m_MaxLineLength = 0;
    const FretlineOptions* m_Options;
    TabAnalysis* m_Analysis = nullptr;
    Nvr::ConverterOutput* m_Output;
};

} // namespace Fretline
