#include "Shared/Utils/tree/TreeNodeBinaryWriter.h"

#include "Shared/Utils/tree/TreeNode.h"
#include "Shared/Utils/tree/TreeNodeEncoding.h"

#include <array>
#include <string_view>
#include <vector>

namespace Nvr {

namespace {

constexpr char kNewString = 0;
constexpr char kStringReference = 1;
constexpr std::string_view kEmptyString("\0\0\0\0\0", 5);
constexpr std::string_view kOpening8Bit("\0\1", 2);
constexpr std::string_view kOpeningUtf16("\0\2", 2);

std::array<char, 4> ToBigEndian(std::uint32_t number) {
    const auto byteAt = [number](unsigned shift) {
        return static_cast<char>(static_cast<unsigned char>(number >> shift));
    };
    return {byteAt(24), byteAt(16), byteAt(8), byteAt(0)};
}

bool HoldsOnlyCarriageReturns(const String& string) {
    return string.View().find_first_not_of('\r') == std::string_view::npos;
}

} // namespace

TreeNodeBinaryWriter::TreeNodeBinaryWriter(TreeNodeOutput& output, bool unicode, int encoding)
    : m_Output(output), m_IsUnicode(unicode), m_Encoding(encoding) {}

void TreeNodeBinaryWriter::Write(const TreeNode& root) {
    struct Written {
        const TreeNode* Node;
        int NextChild;
    };
    m_Output.Append(m_IsUnicode ? kOpeningUtf16 : kOpening8Bit);
    std::vector<Written> path;
    const TreeNode* node = &root;
    while (m_Output.PassOnBlocks()) {
        if (node != nullptr) {
            WriteString(node->GetLabel());
            WriteString(node->GetValue());
            WriteNumber(static_cast<std::uint32_t>(node->GetChildCount()));
            if (node->GetChildCount() != 0)
                path.push_back({node, 0});
        } else {
            path.pop_back();
        }
        if (path.empty())
            return;
        node = path.back().Node->GetChild(path.back().NextChild++);
    }
}

void TreeNodeBinaryWriter::WriteString(const String& string) {
    // Such a string takes no index when it is read, so it must not take one here.
    if (string.IsEmpty() || (m_IsUnicode && HoldsOnlyCarriageReturns(string))) {
        m_Output.Append(kEmptyString);
        return;
    }
    const std::uint32_t index = m_Indexes.FindOrAdd(string);
    if (index == TreeNodeStringIndexes::kNew) {
        WriteNewString(string);
        return;
    }
    m_Output.Append(kStringReference);
    WriteNumber(index);
}

void TreeNodeBinaryWriter::WriteNewString(const String& string) {
    m_Output.Append(kNewString);
    if (!m_IsUnicode) {
        WriteNumber(string.Length());
        m_Output.Append(string.View());
        return;
    }
    constexpr unsigned kBitsOfByte = 8;
    ConvertToUtf16(m_Encoding, string.RemoveCRs().View(), m_Units);
    WriteNumber(static_cast<std::uint32_t>(m_Units.size() * sizeof(char16_t)));
    for (const char16_t unit : m_Units) {
        m_Output.Append(static_cast<char>(unit >> kBitsOfByte));
        m_Output.Append(static_cast<char>(unit));
    }
}

void TreeNodeBinaryWriter::WriteNumber(std::uint32_t number) {
    const std::array<char, 4> bytes = ToBigEndian(number);
    m_Output.Append({bytes.data(), bytes.size()});
}

} // namespace Nvr
