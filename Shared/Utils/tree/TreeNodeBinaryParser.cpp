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
    TreeNodeRoot* const wholeTree = root.get();
    m_Open.push_back(ReadNodeHead(std::move(root), stopLabel, stopMode));
    while (!m_Open.empty()) {
        if (m_Open.back().ChildrenLeft != 0 && !m_HasError)
            ReadNextChild(stopLabel, stopMode);
        else
            CloseLastNode(stopMode);
    }
    if (m_HasError)
        return nullptr;
    m_Finished.back().release();
    return std::unique_ptr<TreeNodeRoot>(wholeTree);
}

TreeNodeBinaryParser::OpenNode TreeNodeBinaryParser::ReadNodeHead(std::unique_ptr<TreeNode> node,
                                                                  const String& stopLabel, int stopMode) {
    OpenNode open{.Node = std::move(node), .FirstChild = m_Finished.size()};
    String label = ReadString();
    if (m_HasError)
        return open;
    const bool isFound = !stopLabel.IsEmpty() && label == stopLabel;
    String value = ReadString();
    if (isFound && stopMode == TreeNodeReader::kStopAtValue)
        throw TreeNodeLabelFoundException(value);
    if (m_HasError)
        return open;
    // Both are interned already.
    open.Node->m_Label = std::move(label);
    open.Node->m_Value = std::move(value);
    open.IsSought = isFound;
    if (!ReadNumber(open.ChildrenLeft))
        RaiseEndOfFile();
    return open;
}

void TreeNodeBinaryParser::ReadNextChild(const String& stopLabel, int stopMode) {
    --m_Open.back().ChildrenLeft;
    if (m_Open.size() > TreeNodeReader::kDeepestLevel) {
        RaiseError("Nodes are nested too deeply");
        return;
    }
    OpenNode child = ReadNodeHead(std::make_unique<TreeNode>(), stopLabel, stopMode);
    if (child.ChildrenLeft != 0 || child.IsSought)
        m_Open.push_back(std::move(child));
    else
        m_Finished.push_back(std::move(child.Node));
}

void TreeNodeBinaryParser::CloseLastNode(int stopMode) {
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
    if (closed.IsSought && stopMode == TreeNodeReader::kStopAtSubTree)
        throw TreeNodeSubTreeFoundException(closed.Node.release());
    m_Finished.push_back(std::move(closed.Node));
}

String TreeNodeBinaryParser::ReadString() {
    const int tag = m_Reader.ReadByte();
    if (tag == kStringReference) {
        std::uint32_t index = 0;
        if (!ReadNumber(index))
            RaiseEndOfFile();
        else if (index < m_Strings.size())
            return m_Strings[index];
    } else if (tag == kNewString) {
        return ReadNewString();
    } else if (tag < 0) {
        RaiseEndOfFile();
    } else {
        RaiseError("Unexpected field type: " + String::FromInt(tag));
    }
    return m_Empty;
}

String TreeNodeBinaryParser::ReadNewString() {
    std::uint32_t length = 0;
    if (!ReadNumber(length)) {
        RaiseEndOfFile();
        return m_Empty;
    }
    if (length == 0)
        return m_Empty;
    const std::string_view bytes = ReadStringBytes(length);
    if (bytes.empty()) {
        RaiseEndOfFile();
        return m_Empty;
    }
    String string = m_IsUnicode ? StringFromUtf16(bytes) : String(bytes);
    InternString(string);
    m_Strings.push_back(string);
    return string;
}

std::string_view TreeNodeBinaryParser::ReadStringBytes(std::uint32_t length) {
    if (const std::uint8_t* const bytes = m_Reader.TakeInPlace(length))
        return {reinterpret_cast<const char*>(bytes), length};
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
    if (const std::uint8_t* const inPlace = m_Reader.TakeInPlace(bytes.size())) {
        number = FromBigEndian(inPlace);
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
