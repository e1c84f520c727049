#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Nvr {

class OutStream;

/// Where the two writers put their bytes: a growing buffer, which goes to a stream in large blocks, or is all
/// there is. Borrows the stream.
class TreeNodeOutput {
public:
    /// Keeps everything, for TakeText.
    TreeNodeOutput() = default;
    explicit TreeNodeOutput(OutStream& stream);

    void Append(char byte) { m_Bytes.push_back(byte); }
    void Append(std::string_view bytes) { m_Bytes.append(bytes); }
    void Append(std::size_t count, char byte) { m_Bytes.append(count, byte); }

    /// To be called now and then: passes a block on when there is enough for one. False when the stream has
    /// failed, after which writing on is of no use.
    bool PassOnBlocks() { return m_Bytes.size() < kBlockSize || m_Stream == nullptr || Flush(); }
    /// Passes everything on to the stream; false when that has failed.
    bool Flush();
    std::string_view View() const { return m_Bytes; }

private:
    static constexpr std::size_t kBlockSize = 262144;

    OutStream* m_Stream = nullptr;
    std::string m_Bytes;
};

} // namespace Nvr
