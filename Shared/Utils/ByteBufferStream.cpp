#include "Shared/Utils/ByteBuffer.h"

#include "Shared/Utils/AllocationFailure.h"
#include "Shared/Utils/Stream.h"

#include <algorithm>
#include <array>
#include <limits>

namespace Nvr {

namespace {

constexpr int kBlockSize = 4096;

// The bytes of the whole stream, which is left at its start; -1 when it cannot seek, and it stays where it
// is.
std::streamoff MeasureAndRewind(InStream& stream) {
    stream.Seek(0, SeekDirection::End);
    const std::streamoff size = stream.Good() ? stream.Tell() : -1;
    if (size < 0)
        stream.Clear();
    else
        stream.Seek(0);
    return size;
}

} // namespace

void ByteBuffer::AppendStream(InStream& stream) {
    constexpr int kAnyCount = std::numeric_limits<int>::max();
    const std::streamoff size = MeasureAndRewind(stream);
    if (size > kAnyCount)
        RaiseAllocationFailure();
    if (size > 0)
        MakeRoom(static_cast<int>(size));
    AppendStream(stream, size < 0 ? kAnyCount : static_cast<int>(size));
}

bool ByteBuffer::AppendStream(InStream& stream, int count) {
    std::array<std::uint8_t, kBlockSize> block;
    while (count > 0) {
        const int wanted = std::min(count, kBlockSize);
        const int got = static_cast<int>(stream.Read(block.data(), static_cast<std::size_t>(wanted)));
        Append(block.data(), got);
        if (got < wanted)
            return true;
        count -= got;
    }
    return false;
}

} // namespace Nvr
