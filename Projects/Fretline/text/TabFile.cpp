#include "Projects/Fretline/text/TabFile.h"

#include "Shared/Utils/FileStream.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace Fretline {

namespace {

constexpr int kTabWidth = 8;
constexpr char kTab = '\t';
constexpr char kLineFeed = '\n';
constexpr char kCarriageReturn = '\r';
constexpr char kBlank = ' ';

constexpr std::size_t kReadBlockSize = 0x10000;

// Takes the bytes of the file one by one and lays them out as lines of the grid.
class GridWriter {
public:
    explicit GridWriter(Nvr::ByteBuffer& text) : m_Text(text) {}

    void Take(char byte) {
        const char pair = m_PairOfLineEnd;
        m_PairOfLineEnd = '\0';
        if (byte == kLineFeed || byte == kCarriageReturn) {
            if (byte != pair)
                EndLine(byte);
        } else if (byte == kTab) {
            PadToTabStop();
        } else {
            Store(byte);
        }
    }
    std::size_t GetLineEnds() const { return m_LineEnds; }

private:
    void EndLine(char byte) {
        m_Text.AppendByte(static_cast<std::uint8_t>(kLineFeed));
        m_Column = 0;
        ++m_LineEnds;
        m_PairOfLineEnd = byte == kLineFeed ? kCarriageReturn : kLineFeed;
    }
    void PadToTabStop() {
        const int stop = (m_Column / kTabWidth + 1) * kTabWidth;
        while (m_Column < stop)
            Store(kBlank);
    }
    void Store(char character) {
        m_Text.AppendByte(static_cast<std::uint8_t>(character));
        ++m_Column;
    }

    Nvr::ByteBuffer& m_Text;
    int m_Column = 0;
    std::size_t m_LineEnds = 0;
    // The byte that, coming next, belongs to the line end just stored; 0 when none does.
    char m_PairOfLineEnd = '\0';
};

} // namespace

TabFile::TabFile(const Nvr::String& path, const FretlineOptions* options, Nvr::ConverterOutput* output)
    : m_Options(options), m_Output(output) {
    Nvr::InFileStream stream(path);
    if (stream.Good())
        ReadGrid(stream);
}

TabFile::TabFile(Nvr::InStream& stream, const FretlineOptions* options, Nvr::ConverterOutput* output)
    : m_Options(options), m_Output(output) {
    ReadGrid(stream);
}

void TabFile::ReadGrid(Nvr::InStream& stream) {
    GridWriter writer(m_Text);
    std::array<char, kReadBlockSize> block;
    std::size_t count = block.size();
    while (count == block.size()) {
        count = stream.Read(block.data(), block.size());
        std::for_each_n(block.begin(), count, [&writer](char byte) { writer.Take(byte); });
    }
    FillLineTable(writer.GetLineEnds());
}

void TabFile::FillLineTable(std::size_t lineEnds) {
    m_LineEnds.reserve(lineEnds + 1);
    auto endLine = [this, start = 0](int end) mutable {
        m_LineEnds.push_back(end);
        m_MaxLineLength = std::max(m_MaxLineLength, end - start);
        start = end + 1;
    };
    const std::string_view text = m_Text.View();
    for (std::size_t at = text.find(kLineFeed); at != std::string_view::npos;
         at = text.find(kLineFeed, at + 1))
        endLine(static_cast<int>(at));
    endLine(m_Text.Size());
}

int TabFile::FindChar(int line, int start, char character) const {
    const std::string_view text = GetLine(line);
    if (start >= m_MaxLineLength)
        return -1;
    const std::size_t column = text.find(character, static_cast<std::size_t>(start));
    if (column != std::string_view::npos)
        return static_cast<int>(column);
    const int firstBeyondEnd = std::max(start, static_cast<int>(text.size()));
    return character == '\0' && firstBeyondEnd < m_MaxLineLength ? firstBeyondEnd : -1;
}

Nvr::String TabFile::GetText(int line, int column, int length) const {
    return Nvr::String(
        GetLine(line).substr(static_cast<std::size_t>(column), static_cast<std::size_t>(length)));
}

void TabFile::ThrowNoSuchLine() {
    throw std::out_of_range("invalid vector<T> subscript");
}

} // namespace Fretline
