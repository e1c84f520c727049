#pragma once

#include "Shared/NotaveraAPI/ConverterOutput.h"
#include "Shared/Utils/ByteBuffer.h"
#include "Shared/Utils/NvrString.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace Nvr {
class InStream;
}

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
    /// CR, LF, CR LF and LF CR each end a line; what stands after the last line end is a line too, also when
    /// that is nothing. A failed allocation passes through.
    TabFile(const Nvr::String& path, const FretlineOptions* options, Nvr::ConverterOutput* output);
    /// Reads the rest of `stream` in the same way.
    TabFile(Nvr::InStream& stream, const FretlineOptions* options, Nvr::ConverterOutput* output);
    TabFile(const TabFile&) = delete;
    TabFile& operator=(const TabFile&) = delete;

    int GetLineCount() const { return static_cast<int>(m_LineEnds.size()); }
    /// The length of the longest line.
    int GetMaxLineLength() const { return m_MaxLineLength; }
    /// Without the line end.
    int GetLineLength(int line) const { return static_cast<int>(GetLine(line).size()); }
    /// The character; 0 at and beyond the line's end.
    char GetChar(int line, int column) const {
        const std::string_view text = GetLine(line);
        const auto at = static_cast<std::size_t>(column);
        return at < text.size() ? text[at] : '\0';
    }
    /// First column from `start` on that holds `character`, else -1. Below GetMaxLineLength(), the space
    /// beyond the line's end holds 0.
    int FindChar(int line, int start, char character) const;
    /// `length` bytes from `column`, which must lie in the line.
    Nvr::String GetText(int line, int column, int length) const;
    /// The whole line, without its end; valid as long as the file.
    std::string_view GetLine(int line) const {
        const auto index = static_cast<std::size_t>(line);
        if (index >= m_LineEnds.size())
            ThrowNoSuchLine();
        const int start = index == 0 ? 0 : m_LineEnds[index - 1] + 1;
        return m_Text.View().substr(static_cast<std::size_t>(start),
                                    static_cast<std::size_t>(m_LineEnds[index] - start));
    }
    /// What the line holds in so many columns, none where it ends before them; valid as long as the file.
    std::string_view GetStretch(int line, int startColumn, int width) const {
        const std::string_view text = GetLine(line);
        const auto start = std::min(static_cast<std::size_t>(startColumn), text.size());
        return text.substr(start, static_cast<std::size_t>(width));
    }

    const FretlineOptions* GetOptions() const { return m_Options; }
    /// Null until an analysis has been made of the file; to a reader of bars no line is then one of a stave,
    /// and none holds a time signature.
    TabAnalysis* GetAnalysis() const { return m_Analysis; }
    Nvr::ConverterOutput* GetOutput() const { return m_Output; }
    void SetAnalysis(TabAnalysis* analysis) { m_Analysis = analysis; }

private:
    [[noreturn]] static void ThrowNoSuchLine();
    void ReadGrid(Nvr::InStream& stream);
    void FillLineTable(std::size_t lineEnds);

    Nvr::ByteBuffer m_Text;
    /// The offset in m_Text after the last character of each line: of its line feed, and for the last line
    /// the size of m_Text.
    std::vector<int> m_LineEnds;
    int m_MaxLineLength = 0;
    const FretlineOptions* m_Options;
    TabAnalysis* m_Analysis = nullptr;
    Nvr::ConverterOutput* m_Output;
};

} // namespace Fretline
