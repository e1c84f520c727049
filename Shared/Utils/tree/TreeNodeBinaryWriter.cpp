#include "Shared/Utils/tree/TreeNodeBinaryWriter.h"

#include "Shared/Utils/tree/TreeNode.h"
#include "Shared/Utils/tree/TreeNodeEncoding.h"
#include "Shared/Utils/tree/TreeNodeList.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstring>
#include <string_view>
#include <vector>

namespace Nvr {

namespace {

constexpr unsigned kNewString = 0;
constexpr unsigned kStringReference = 1;
constexpr std::size_t kNumberSize = 4;
// The tag and the length or index.
constexpr std::size_t kStringHeadSize = 1 + kNumberSize;
constexpr std::string_view kOpening8Bit("\0\1", 2);
constexpr std::string_view kOpeningUtf16("\0\2", 2);

constexpr unsigned kBitsOfByte = 8;

// All of these write at `place` and give the place after.
char* PutByte(char* place, unsigned byte) {
    *place = static_cast<char>(static_cast<unsigned char>(byte));
    return place + 1;
}

char* PutNumber(char* place, std::uint32_t number) {
    // Put together before it is stored, which is then one store.
    constexpr std::uint32_t kLowByte = 0xFF;
    constexpr std::uint32_t kSecondByte = 0xFF00;
    const std::uint32_t turned = number << 3 * kBitsOfByte | (number & kSecondByte) << kBitsOfByte |
                                 (number >> kBitsOfByte & kSecondByte) |
                                 (number >> 3 * kBitsOfByte & kLowByte);
    const std::uint32_t stored = std::endian::native == std::endian::big ? number : turned;
    std::memcpy(place, &stored, sizeof stored);
    return place + sizeof stored;
}

char* PutStringHead(char* place, unsigned tag, std::uint32_t number) {
    return PutNumber(PutByte(place, tag), number);
}

// Of a string that stood before, or is to be written as the empty one.
char* PutReference(char* place, std::uint32_t index) {
    const bool isEmpty = index == TreeNodeStringIndexes::kWrittenEmpty;
    return PutStringHead(place, isEmpty ? kNewString : kStringReference, isEmpty ? 0 : index);
}

bool IsPlainText(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return IsPlainByte(static_cast<std::uint8_t>(c)); });
}

} // namespace

TreeNodeBinaryWriter::TreeNodeBinaryWriter(TreeNodeOutput& output, bool unicode, int encoding)
    : m_Output(output), m_IsUnicode(unicode), m_Encoding(encoding), m_Indexes(unicode) {}

void TreeNodeBinaryWriter::Write(const TreeNode& root) {
    assert(!m_HasWritten);
    m_HasWritten = true;
    m_Output.Append(m_IsUnicode ? kOpeningUtf16 : kOpening8Bit);
    std::vector<Level> path;
    const TreeNodeList* below = WriteNodeHead(root);
    while (m_Output.PassOnBlocks()) {
        if (below != nullptr)
            path.push_back({below, 0});
        else if (!path.empty())
            path.pop_back();
        if (path.empty())
            return;
        below = WriteChildren(path.back());
    }
}

const TreeNodeList* TreeNodeBinaryWriter::WriteChildren(Level& level) {
    const int count = level.Children->Count();
    const TreeNodeList* below = nullptr;
    while (below == nullptr && level.Next != count && m_Output.PassOnBlocks())
        below = WriteNodeHead(*level.Children->GetAt(level.Next++));
    return below;
}

const TreeNodeList* TreeNodeBinaryWriter::WriteNodeHead(const TreeNode& node) {
    const int childCount = node.m_Children != nullptr ? node.m_Children->Count() : 0;
    const std::uint32_t label = KnownIndexOf(node.m_Label);
    const std::uint32_t value = KnownIndexOf(node.m_Value);
    char* place = nullptr;
    if (label != TreeNodeStringIndexes::kNew && value != TreeNodeStringIndexes::kNew) {
        place = m_Output.Extend(2 * kStringHeadSize + kNumberSize);
        place = PutReference(PutReference(place, label), value);
    } else {
        WriteString(node.m_Label);
        WriteString(node.m_Value);
        place = m_Output.Extend(kNumberSize);
    }
    PutNumber(place, static_cast<std::uint32_t>(childCount));
    return childCount != 0 ? node.m_Children : nullptr;
}

void TreeNodeBinaryWriter::WriteString(const String& string) {
    const std::uint32_t index =
        string.IsEmpty() ? TreeNodeStringIndexes::kWrittenEmpty : m_Indexes.FindOrAdd(string);
    if (index == TreeNodeStringIndexes::kNew)
        WriteNewString(string);
    else
        PutReference(m_Output.Extend(kStringHeadSize), index);
}

void TreeNodeBinaryWriter::WriteNewString(const String& string) {
    const std::string_view text = string.View();
    if (!m_IsUnicode) {
        std::copy(text.begin(), text.end(), StartNewString(text.size()));
    } else if (IsPlainText(text)) {
        char* place = StartNewString(text.size() * sizeof(char16_t));
        for (const char c : text)
            place = PutByte(PutByte(place, 0), static_cast<unsigned char>(c));
    } else {
        ConvertToUtf16(m_Encoding, string.RemoveCRs().View(), m_Units);
        char* place = StartNewString(m_Units.size() * sizeof(char16_t));
        for (const char16_t unit : m_Units)
            place = PutByte(PutByte(place, unit >> kBitsOfByte), unit);
    }
}

char* TreeNodeBinaryWriter::StartNewString(std::size_t size) {
    return PutStringHead(m_Output.Extend(kStringHeadSize + size), kNewString,
                         static_cast<std::uint32_t>(size));
}

} // namespace Nvr
