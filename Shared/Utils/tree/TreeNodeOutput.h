#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace Nvr {

class OutStream;

/// Where the two writers put their bytes: a growing buffer, which goes to a stream in large blocks, or is all
/// there is. Borrows the stream.
class TreeNodeOutput {
public:
    /// Keeps everything, for TakeText.
    TreeNodeOutput() = default;
    explicit TreeNodeOutput(OutStream& stream);

    void Append(char byte) { *Extend(1) = byte; }
    void Append(std::string_view bytes) { std::copy(bytes.begin(), bytes.end(), Extend(bytes.size())); }
    void Append(std::size_t count, char byte) { std::fill_n(Extend(count), count, byte); }
    /// Makes the output `count` bytes longer, and gives the place where to write them.
    char* Extend(std::size_t count) {
        if (m_Bytes.size() - m_Size < count)
            MakeRoom(count);
        char* const place = m_Bytes.data() + m_Size;
        m_Size += count;
        return place;
    }

    /// To be called now and then: passes a block on when there is enough for one. False when the stream has
    /// failed, after which writing on is of no use.
    bool PassOnBlocks() { return m_Size < kBlockSize || m_Stream == nullptr || Flush(); }
    /// Passes everything on to the stream; false when that has failed.
    bool Flush();
    std::string_view View() const { return {m_Bytes.data(), m_Size}; }

private:
    static constexpr std::size_t kBlockSize = 65536;
    static constexpr std::size_t kSmallestRoom = 4096;

    void MakeRoom(std::size_t count);

    OutStream* m_Stream = nullptr;
    std::vector<char> m_Bytes;
    std::size_t m_Size = 0;
};

} // namespace Nvr
