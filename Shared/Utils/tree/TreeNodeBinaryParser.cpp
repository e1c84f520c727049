#include "Shared/Utils/tree/TreeNodeBinaryParser.h"

#include "Shared/Utils/Reporting.h"
#include "Shared/Utils/tree/TreeNodeEncoding.h"
#include "Shared/Utils/tree/TreeNodeExceptions.h"
#include "Shared/Utils/tree/TreeNodeList.h"

#include <array>
#include <utility>

namespace Nvr {

namespace {

constexpr int kNewString = 0;
constexpr int kStringReference = 1;
// The tag and the length or index.
constexpr std::size_t kStringFieldSize = 5;

constexpr bool IsStringTag(int tag) {
    return tag == kNewString || tag == kStringReference;
}

// What a list has grown to when it holds `count` children.
int CapacityFor(int count) {
    constexpr int kGrowBy = ListGrowth::kDefaultGrowBy;
    return (count + kGrowBy - 1) / kGrowBy * kGrowBy;
}

std::uint32_t FromBigEndian(const std::uint8_t* bytes) {
    return static_cast<std::uint32_t>(bytes[0]) << 24 | static_cast<std::uint32_t>(bytes[1]) << 16 |
           static_cast<std::uint32_t>(bytes[2]) << 8 | static_cast<std::uint32_t>(bytes[3]);
}

} // namespace

TreeNodeBinaryParser::TreeNodeBinaryParser(TreeNodeReader& reader, bool unicode)
    : m_Reader(reader), m_IsUnicode(unicode) {
    InternString(m_Empty);
}

std::unique_ptr<TreeNodeRoot> TreeNodeBinaryParser::Parse(std::unique_ptr<TreeNodeRoot> root,
                                                          const String& stopLabel, int stopMode) {
    m_StopLabel = stopLabel;
    m_StopMode = stopMode;
    TreeNodeRoot* const wholeTree = root.get();
    ReadNode(std::move(root));
    while (!m_Open.empty()) {
        if (m_Open.back().ChildrenLeft != 0 && !m_HasError)
            ReadNextChild();
        else
            CloseLastNode();
    }
    if (m_HasError)
        return nullptr;
    static_cast<void>(m_Finished.back().release());
    return std::unique_ptr<TreeNodeRoot>(wholeTree);
}

void TreeNodeBinaryParser::ReadNode(std::unique_ptr<TreeNode> node) {
    OpenNode open;
    ReadHead(*node, open);
    if (open.ChildrenLeft == 0 && !open.IsSought) {
        m_Finished.push_back(std::move(node));
        return;
    }
    open.Node = std::move(node);
    open.FirstChild = m_Finished.size();
    m_Open.push_back(std::move(open));
}

void TreeNodeBinaryParser::ReadHead(TreeNode& node, OpenNode& open) {
    // Both are interned already.
    node.m_Label = ReadString();
    if (m_HasError)
        return;
    const bool isFound = !m_StopLabel.IsEmpty() && node.m_Label == m_StopLabel;
    node.m_Value = ReadString();
    if (isFound && m_StopMode == TreeNodeReader::kStopAtValue)
        throw TreeNodeLabelFoundException(node.m_Value);
    if (m_HasError) {
        node.m_Label = m_Empty;
        return;
    }
    open.IsSought = isFound && m_StopMode == TreeNodeReader::kStopAtSubTree;
    if (!ReadNumber(open.ChildrenLeft))
        RaiseEndOfFile();
}

void TreeNodeBinaryParser::ReadNextChild() {
    --m_Open.back().ChildrenLeft;
    if (m_Open.size() > TreeNodeReader::kDeepestLevel)
        RaiseError("Nodes are nested too deeply");
    else
        ReadNode(std::make_unique<TreeNode>());
}

void TreeNodeBinaryParser::CloseLastNode() {
    OpenNode closed = std::move(m_Open.back());
    m_Open.pop_back();
    const auto childCount = static_cast<int>(m_Finished.size() - closed.FirstChild);
    if (childCount != 0) {
        auto* const list = new TreeNodeList;
        closed.Node->m_Children = list;
        list->Reserve(CapacityFor(childCount));
        for (std::size_t i = closed.FirstChild; i < m_Finished.size(); ++i)
            list->Add(m_Finished[i].release());
        m_Finished.resize(closed.FirstChild);
    }
    if (closed.IsSought)
        throw TreeNodeSubTreeFoundException(closed.Node.release());
    m_Finished.push_back(std::move(closed.Node));
}

const String& TreeNodeBinaryParser::ReadString() {
    int tag = 0;
    std::uint32_t number = 0;
    if (m_Reader.BytesAtHand() >= kStringFieldSize) {
        const std::uint8_t* const field = m_Reader.TakeInPlace(kStringFieldSize);
        tag = field[0];
        number = FromBigEndian(field + 1);
    } else {
        tag = m_Reader.ReadByte();
        if (tag < 0 || (IsStringTag(tag) && !ReadNumber(number))) {
            RaiseEndOfFile();
            return m_Empty;
        }
    }
    if (tag == kStringReference)
        return number < m_Strings.size() ? m_Strings[number] : m_Empty;
    if (tag == kNewString)
        return number != 0 ? ReadNewString(number) : m_Empty;
    RaiseError("Unexpected field type: " + String::FromInt(tag));
    return m_Empty;
}

const String& TreeNodeBinaryParser::ReadNewString(std::uint32_t length) {
    const std::string_view bytes = ReadStringBytes(length);
    if (bytes.empty()) {
        RaiseEndOfFile();
        return m_Empty;
    }
    String string = m_IsUnicode ? StringFromUtf16(bytes) : String(bytes);
    InternString(string);
    m_Strings.push_back(std::move(string));
    return m_Strings.back();
}

std::string_view TreeNodeBinaryParser::ReadStringBytes(std::uint32_t length) {
    if (m_Reader.BytesAtHand() >= length)
        return {reinterpret_cast<const char*>(m_Reader.TakeInPlace(length)), length};
    m_StringBytes.Clear();
    m_Reader.ReadBytesInto(m_StringBytes, length);
    return m_StringBytes.View();
}

String TreeNodeBinaryParser::StringFromUtf16(std::string_view bytes) {
    m_Units.resize(bytes.size() / 2);
    for (std::size_t i = 0; i < m_Units.size(); ++i)
        m_Units[i] = UnitFromBytes(static_cast<std::uint8_t>(bytes[2 * i]),
                                   static_cast<std::uint8_t>(bytes[2 * i + 1]));
    ConvertFromUtf16(m_Units, m_Converted);
    std::erase(m_Converted, '\r');
    return String(m_Converted);
}

bool TreeNodeBinaryParser::ReadNumber(std::uint32_t& number) {
    std::array<std::uint8_t, 4> bytes{};
    if (m_Reader.BytesAtHand() >= bytes.size()) {
        number = FromBigEndian(m_Reader.TakeInPlace(bytes.size()));
        return true;
    }
    for (std::uint8_t& byte : bytes) {
        const int next = m_Reader.ReadByte();
        if (next < 0)
            return false;
        byte = static_cast<std::uint8_t>(next);
    }
    number = FromBigEndian(bytes.data());
    return true;
}

void TreeNodeBinaryParser::RaiseError(const String& message) {
    m_HasError = true;
    ReportError(message);
}

} // namespace Nvr
