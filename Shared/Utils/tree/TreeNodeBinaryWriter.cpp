#include "Shared/Utils/tree/TreeNodeBinaryWriter.h"

#include "Shared/Utils/tree/TreeNode.h"
#include "Shared/Utils/tree/TreeNodeEncoding.h"
#include "Shared/Utils/tree/TreeNodeList.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace Nvr {

namespace {

constexpr unsigned kNewString = 0;
constexpr unsigned kStringReference = 1;
constexpr std::size_t kNumberSize = 4;
constexpr std::string_view kOpening8Bit("\0\1", 2);
constexpr std::string_view kOpeningUtf16("\0\2", 2);

constexpr unsigned kBitsOfByte = 8;

// Both write at the place and move it on.
void PutByte(char*& place, unsigned byte) {
    *place++ = static_cast<char>(static_cast<unsigned char>(byte));
}

void PutNumber(char*& place, std::uint32_t number) {
    for (unsigned shift = 4 * kBitsOfByte; shift != 0; shift -= kBitsOfByte)
        PutByte(place, number >> (shift - kBitsOfByte));
}

} // namespace

TreeNodeBinaryWriter::TreeNodeBinaryWriter(TreeNodeOutput& output, bool unicode, int encoding)
    : m_Output(output), m_IsUnicode(unicode), m_Encoding(encoding), m_Indexes(unicode) {}

void TreeNodeBinaryWriter::Write(const TreeNode& root) {
    struct Written {
        const TreeNodeList* Children;
        int NextChild;
    };
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
    char* place = m_Output.Extend(kNumberSize);
    PutNumber(place, static_cast<std::uint32_t>(childCount));
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
    char* place = m_Output.Extend(1 + kNumberSize);
    PutByte(place, isEmpty ? kNewString : kStringReference);
    PutNumber(place, isEmpty ? 0 : index);
}

void TreeNodeBinaryWriter::WriteNewString(const String& string) {
    if (m_IsUnicode)
        ConvertToUtf16(m_Encoding, string.RemoveCRs().View(), m_Units);
    const std::size_t size = m_IsUnicode ? m_Units.size() * sizeof(char16_t) : string.Length();
    char* place = m_Output.Extend(1 + kNumberSize + size);
    PutByte(place, kNewString);
    PutNumber(place, static_cast<std::uint32_t>(size));
    if (!m_IsUnicode) {
        std::copy_n(string.CStr(), size, place);
        return;
    }
    for (const char16_t unit : m_Units) {
        PutByte(place, unit >> kBitsOfByte);
        PutByte(place, unit);
    }
}

} // namespace Nvr
