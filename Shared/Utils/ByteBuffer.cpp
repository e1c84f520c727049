#include "Shared/Utils/ByteBuffer.h"

#include "Shared/Utils/AllocationFailure.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Nvr {

namespace {

constexpr std::int32_t kFirstCapacity = 1000;
constexpr std::int32_t kLargestCapacity = std::numeric_limits<std::int32_t>::max();
constexpr char kLineFeed = '\n';

std::unique_ptr<std::uint8_t[]> NewBytes(std::int32_t count) {
    return std::unique_ptr<std::uint8_t[]>(new std::uint8_t[static_cast<std::size_t>(count)]);
}

std::int32_t DoubledUntilFits(std::int32_t capacity, std::int32_t needed) {
    std::int32_t result = std::max(capacity, std::int32_t{1});
    while (result < needed)
        result = result > kLargestCapacity / 2 ? kLargestCapacity : result * 2;
    return result;
}

// The bytes of [offset, size) that a request of `count` gets.
int ClipCount(int size, int offset, int count) {
    if (offset < 0 || offset >= size)
        return 0;
    return std::clamp(count, 0, size - offset);
}

} // namespace

ByteBuffer::ByteBuffer()
    : m_Capacity(kFirstCapacity), m_Size(0), m_Bytes(std::make_unique<std::uint8_t[]>(kFirstCapacity)) {}

ByteBuffer::ByteBuffer(const void* bytes, int size)
    : m_Capacity(std::max(size, 0)), m_Size(m_Capacity), m_Bytes(NewBytes(m_Capacity)) {
    std::copy_n(static_cast<const std::uint8_t*>(bytes), m_Size, m_Bytes.get());
}

ByteBuffer::ByteBuffer(const ByteBuffer& other)
    : m_Capacity(other.m_Capacity), m_Size(other.m_Size), m_Bytes(NewBytes(other.m_Capacity)) {
    std::copy_n(other.m_Bytes.get(), m_Size, m_Bytes.get());
}

ByteBuffer::ByteBuffer(ByteBuffer&& other) noexcept
    : m_Capacity(std::exchange(other.m_Capacity, 0)), m_Size(std::exchange(other.m_Size, 0)),
      m_Bytes(std::move(other.m_Bytes)) {}

ByteBuffer& ByteBuffer::operator=(const ByteBuffer& other) {
    if (this != &other)
        *this = ByteBuffer(other);
    return *this;
}

ByteBuffer& ByteBuffer::operator=(ByteBuffer&& other) noexcept {
    std::swap(m_Capacity, other.m_Capacity);
    std::swap(m_Size, other.m_Size);
    m_Bytes.swap(other.m_Bytes);
    return *this;
}

void ByteBuffer::Append(const void* bytes, int count) {
    if (count < 1)
        return;
    // Kept until the copy is made: the bytes may lie in it.
    const auto former = MakeRoom(count);
    std::copy_n(static_cast<const std::uint8_t*>(bytes), count, Data(m_Size));
    m_Size += count;
}

void ByteBuffer::AppendText(std::string_view text) {
    if (text.size() > static_cast<std::size_t>(kLargestCapacity))
        RaiseAllocationFailure();
    Append(text.data(), static_cast<int>(text.size()));
}

int ByteBuffer::AppendFrom(const ByteBuffer& other, int offset, int count) {
    const int taken = ClipCount(other.m_Size, offset, count);
    if (taken != 0)
        Append(other.Data(offset), taken);
    return taken;
}

int ByteBuffer::Read(void* destination, int offset, int count) const {
    const int copied = ClipCount(m_Size, offset, count);
    if (copied != 0)
        std::copy_n(Data(offset), copied, static_cast<std::uint8_t*>(destination));
    return copied;
}

int ByteBuffer::FindLastLineFeed() const {
    const auto found = View().rfind(kLineFeed);
    return found != std::string_view::npos ? static_cast<int>(found) : -1;
}

std::unique_ptr<std::uint8_t[]> ByteBuffer::MakeRoom(int count) {
    if (count > kLargestCapacity - m_Size)
        RaiseAllocationFailure();
    const std::int32_t needed = m_Size + count;
    if (needed <= m_Capacity)
        return nullptr;
    const std::int32_t capacity = DoubledUntilFits(m_Capacity, needed);
    auto bytes = NewBytes(capacity);
    std::copy_n(m_Bytes.get(), m_Size, bytes.get());
    m_Capacity = capacity;
    m_Bytes.swap(bytes);
    return bytes;
}

} // namespace Nvr
