#include "Shared/Utils/tree/TreeNodeBinaryWriter.h"

#include "Shared/Utils/tree/TreeNode.h"
#include "Shared/Utils/tree/TreeNodeEncoding.h"
#include "Shared/Utils/tree/TreeNodeList.h"

#include <algorithm>
#include <cassert>
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
    place = PutByte(place, number >> 3 * kBitsOfByte);
    place = PutByte(place, number >> 2 * kBitsOfByte);
    place = PutByte(place, number >> kBitsOfByte);
    return PutByte(place, number);
}

char* PutStringHead(char* place, unsigned tag, std::uint32_t number) {
    return PutNumber(PutByte(place, tag), number);
}

bool IsPlainText(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return IsPlainByte(static_cast<std::uint8_t>(c)); });
}

} // namespace

TreeNodeBinaryWriter::TreeNodeBinaryWriter(TreeNodeOutput& output, bool unicode, int encoding)
    : m_Output(output), m_IsUnicode(unicode), m_Encoding(encoding), m_Indexes(unicode) {}

void TreeNodeBinaryWriter::Write(const TreeNode& root) {
    struct Written {
        const TreeNodeList* Children;
        int NextChild;
    };
    assert(!m_HasWritten);
    m_HasWritten = true;
    m_Output.Append(m_IsUnicode ? kOpeningUtf16 : kOpening8Bit);
    std::vector<Written> path;
    const TreeNode* node = &root;
    while (m_Output.PassOnBlocks()) {
        const int childCount = WriteNodeHead(*node);
        if (childCount != 0)
            path.push_back({node->m_Children, 0});
        while (!path.empty() && path.back().NextChild == path.back().Children->Count())
            path.pop_back();
        if (path.empty())
            return;
        node = path.back().Children->GetAt(path.back().NextChild++);
    }
}

int TreeNodeBinaryWriter::WriteNodeHead(const TreeNode& node) {
    WriteString(node.m_Label);
    WriteString(node.m_Value);
    const int childCount = node.m_Children != nullptr ? node.m_Children->Count() : 0;
    PutNumber(m_Output.Extend(kNumberSize), static_cast<std::uint32_t>(childCount));
    return childCount;
}

void TreeNodeBinaryWriter::WriteString(const String& string) {
    const std::uint32_t index =
        string.IsEmpty() ? TreeNodeStringIndexes::kWrittenEmpty : m_Indexes.FindOrAdd(string);
    if (index == TreeNodeStringIndexes::kNew) {
        WriteNewString(string);
        return;
    }
    const bool isEmpty = index == TreeNodeStringIndexes::kWrittenEmpty;
    char* const place = m_Output.Extend(kStringHeadSize);
    if (isEmpty)
        PutStringHead(place, kNewString, 0);
    else
        PutStringHead(place, kStringReference, index);
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
