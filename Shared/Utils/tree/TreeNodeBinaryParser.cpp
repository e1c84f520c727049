#include "Shared/Utils/tree/TreeNodeBinaryParser.h"

#include "Shared/Utils/tree/TreeNodeEncoding.h"
#include "Shared/Utils/tree/TreeNodeExceptions.h"
#include "Shared/Utils/tree/TreeNodeFailure.h"
#include "Shared/Utils/tree/TreeNodeList.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Nvr {

namespace {

constexpr int kNewString = 0;
constexpr int kStringReference = 1;
// The tag and the length or index.
constexpr std::size_t kStringFieldSize = 5;
// A node both of whose strings stood before: two fields and the child count.
constexpr std::size_t kKnownHeadSize = 2 * kStringFieldSize + 4;

constexpr bool IsStringTag(int tag) {
    return tag == kNewString || tag == kStringReference;
}

std::uint32_t FromBigEndian(const std::uint8_t* bytes) {
    return static_cast<std::uint32_t>(bytes[0]) << 24 | static_cast<std::uint32_t>(bytes[1]) << 16 |
           static_cast<std::uint32_t>(bytes[2]) << 8 | static_cast<std::uint32_t>(bytes[3]);
}

// The field of a string that stood before, or of the empty one.
bool HoldsNoBytes(const std::uint8_t* field) {
    return field[0] == kStringReference || (field[0] == kNewString && FromBigEndian(field + 1) == 0);
}

} // namespace

inline void TreeNodeBinaryParser::Finish(TDeleterHelper<TreeNode>& node) {
    m_Finished.Add(node.Get());
    static_cast<void>(node.Release());
}

inline const String* TreeNodeBinaryParser::KnownString(const std::uint8_t* field) const {
    const std::uint32_t number = FromBigEndian(field + 1);
    if (field[0] == kStringReference) {
        if (number >= m_Strings.size())
            return &m_Empty;
        return !m_HasUnmade || IsMade(number) ? &m_Strings[number] : nullptr;
    }
    return field[0] == kNewString && number == 0 ? &m_Empty : nullptr;
}

TreeNodeBinaryParser::TreeNodeBinaryParser(TreeNodeReader& reader, bool unicode,
                                           std::span<const TreeSelection> selection, const NodeViewer& viewer)
    : m_Reader(reader), m_Viewer(viewer),
      m_IsUnicode(unicode), m_RootSelection{.Label = {}, .Below = selection} {
    InternString(m_Empty);
}

std::unique_ptr<TreeNodeRoot> TreeNodeBinaryParser::Parse(std::unique_ptr<TreeNodeRoot> root,
                                                          const String& stopLabel, int stopMode) {
    m_StopLabel = stopLabel;
    m_StopMode = stopMode;
    TreeNodeRoot* const wholeTree = root.get();
    ReadNode(TDeleterHelper<TreeNode>(root.release()));
    while (!m_Open.empty()) {
        if (m_Open.back().ChildrenLeft != 0 && !m_HasError)
            ReadNextChildren();
        else
            CloseLastNode();
    }
    if (m_HasError)
        return nullptr;
    m_Finished.Forget();
    return std::unique_ptr<TreeNodeRoot>(wholeTree);
}

void TreeNodeBinaryParser::ReadNode(TDeleterHelper<TreeNode> node) {
    OpenNode open;
    ReadHead(*node, open);
    if (open.IsLeftOut) {
        PassOver(open.ChildrenLeft);
        return;
    }
    if (open.ChildrenLeft == 0 && !open.IsSought) {
        if (open.IsShown && !m_HasError)
            Show(*node);
        Finish(node);
        return;
    }
    open.Node = std::move(node);
    open.FirstChild = m_Finished.Count();
    m_Open.push_back(std::move(open));
}

bool TreeNodeBinaryParser::ReadKnownLeaves() {
    // A stop label has each node looked at.
    if (!m_StopLabel.IsEmpty())
        return false;
    const std::uint32_t most = m_Open.back().ChildrenLeft;
    std::uint32_t left = most;
    while (left != 0 && m_Reader.BytesAtHand() >= kKnownHeadSize) {
        const std::uint8_t* const head = m_Reader.BytesInPlace();
        const String* const label = KnownString(head);
        const String* const value = KnownString(head + kStringFieldSize);
        if (label == nullptr || value == nullptr || FromBigEndian(head + 2 * kStringFieldSize) != 0)
            break;
        m_Reader.TakeInPlace(kKnownHeadSize);
        --left;
        TDeleterHelper<TreeNode> leaf(new TreeNode(*label, *value, TreeNode::AreInterned()));
        Finish(leaf);
    }
    m_Open.back().ChildrenLeft = left;
    return left != most;
}

bool TreeNodeBinaryParser::PassOverUnwanted() {
    bool isPassed = false;
    std::uint32_t& left = m_Open.back().ChildrenLeft;
    while (left != 0 && !m_HasError && m_Reader.BytesAtHand() >= kKnownHeadSize) {
        const std::uint8_t* const head = m_Reader.BytesInPlace();
        const String* const label = KnownString(head);
        if (label == nullptr || !HoldsNoBytes(head + kStringFieldSize) || FindSelection(*label) != nullptr)
            break;
        --left;
        isPassed = true;
        PassOver(PassOverHead());
    }
    return isPassed;
}

void TreeNodeBinaryParser::ReadHead(TreeNode& node, OpenNode& open) {
    // Both are interned already.
    node.m_Label = ReadString();
    if (m_HasError)
        return;
    const bool isFound = !m_StopLabel.IsEmpty() && node.m_Label == m_StopLabel;
    const TreeSelection* const selection = FindSelection(node.m_Label);
    if (selection == nullptr) {
        open.IsLeftOut = true;
        PassOverString();
        if (!m_HasError && !ReadNumber(open.ChildrenLeft))
            RaiseEndOfFile();
        return;
    }
    open.Selection = selection->Below;
    open.IsShown = selection->IsShown && m_Viewer != nullptr;
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

void TreeNodeBinaryParser::ReadNextChildren() {
    if (m_Open.size() > TreeNodeReader::kDeepestLevel) {
        RaiseError("Nodes are nested too deeply");
    } else if (!(m_Open.back().Selection.empty() ? ReadKnownLeaves() : PassOverUnwanted())) {
        --m_Open.back().ChildrenLeft;
        ReadNode(TDeleterHelper<TreeNode>(new TreeNode));
    }
}

void TreeNodeBinaryParser::CloseLastNode() {
    OpenNode closed = std::move(m_Open.back());
    m_Open.pop_back();
    if (m_Finished.Count() != closed.FirstChild) {
        closed.Node->m_Children = new TreeNodeList;
        closed.Node->m_Children->TakeTail(m_Finished, closed.FirstChild);
    }
    if (closed.IsSought)
        throw TreeNodeSubTreeFoundException(closed.Node.Release());
    if (closed.IsShown && !m_HasError)
        Show(*closed.Node);
    Finish(closed.Node);
}

void TreeNodeBinaryParser::Show(TreeNode& node) {
    m_Viewer(node);
    delete std::exchange(node.m_Children, nullptr);
}

const String& TreeNodeBinaryParser::ReadString() {
    int tag = 0;
    std::uint32_t number = 0;
    if (!ReadStringField(tag, number))
        return m_Empty;
    if (tag == kStringReference)
        return StringOfNumber(number);
    return number != 0 ? ReadNewString(number) : m_Empty;
}

inline bool TreeNodeBinaryParser::ReadStringField(int& tag, std::uint32_t& number) {
    if (m_Reader.BytesAtHand() >= kStringFieldSize) {
        const std::uint8_t* const field = m_Reader.TakeInPlace(kStringFieldSize);
        tag = field[0];
        number = FromBigEndian(field + 1);
    } else {
        tag = m_Reader.ReadByte();
        if (tag < 0 || (IsStringTag(tag) && !ReadNumber(number))) {
            RaiseEndOfFile();
            return false;
        }
    }
    if (IsStringTag(tag))
        return true;
    RaiseError("Unexpected field type: " + String::FromInt(tag));
    return false;
}

const String& TreeNodeBinaryParser::ReadNewString(std::uint32_t length) {
    const std::string_view bytes = ReadStringBytes(length);
    if (bytes.empty()) {
        RaiseEndOfFile();
        return m_Empty;
    }
    m_Strings.push_back(Made(bytes));
    return m_Strings.back();
}

const String& TreeNodeBinaryParser::StringOfNumber(std::uint32_t number) {
    if (number >= m_Strings.size())
        return m_Empty;
    if (m_HasUnmade && !IsMade(number)) {
        const auto& [start, size] = m_Unmade[number];
        m_Strings[number] = Made(std::string_view(m_UnmadeBytes).substr(start, size));
        m_Unmade[number].Size = 0;
    }
    return m_Strings[number];
}

inline String TreeNodeBinaryParser::Made(std::string_view bytes) {
    String string = m_IsUnicode ? StringFromUtf16(bytes) : String(bytes);
    InternString(string);
    return string;
}

const TreeSelection* TreeNodeBinaryParser::FindSelection(const String& label) const {
    static constexpr TreeSelection kEverything{};
    if (m_Open.empty())
        return &m_RootSelection;
    const std::span<const TreeSelection> selection = m_Open.back().Selection;
    if (selection.empty())
        return &kEverything;
    const auto found =
        std::find_if(selection.begin(), selection.end(),
                     [&label](const TreeSelection& wanted) { return wanted.Label == label.View(); });
    return found == selection.end() ? nullptr : &*found;
}

void TreeNodeBinaryParser::PassOver(std::uint32_t nodes) {
    const std::size_t mostLevels = TreeNodeReader::kDeepestLevel - m_Open.size();
    m_LeftAtLevels.assign(1, nodes);
    while (!m_LeftAtLevels.empty() && !m_HasError) {
        std::uint32_t& left = m_LeftAtLevels.back();
        if (left == 0) {
            m_LeftAtLevels.pop_back();
        } else if (m_LeftAtLevels.size() > mostLevels) {
            RaiseError("Nodes are nested too deeply");
        } else {
            --left;
            if (const std::uint32_t below = PassOverHead(); below != 0)
                m_LeftAtLevels.push_back(below);
        }
    }
}

inline std::uint32_t TreeNodeBinaryParser::PassOverHead() {
    const std::uint8_t* const head = m_Reader.BytesInPlace();
    if (m_Reader.BytesAtHand() >= kKnownHeadSize && HoldsNoBytes(head) &&
        HoldsNoBytes(head + kStringFieldSize)) {
        m_Reader.TakeInPlace(kKnownHeadSize);
        return FromBigEndian(head + 2 * kStringFieldSize);
    }
    std::uint32_t below = 0;
    PassOverString();
    if (!m_HasError)
        PassOverString();
    if (!m_HasError && !ReadNumber(below))
        RaiseEndOfFile();
    return below;
}

void TreeNodeBinaryParser::PassOverString() {
    int tag = 0;
    std::uint32_t length = 0;
    if (!ReadStringField(tag, length) || tag == kStringReference || length == 0)
        return;
    const std::string_view bytes = ReadStringBytes(length);
    if (bytes.empty()) {
        RaiseEndOfFile();
        return;
    }
    m_HasUnmade = true;
    m_Unmade.resize(m_Strings.size());
    m_Unmade.push_back({m_UnmadeBytes.size(), bytes.size()});
    m_Strings.emplace_back();
    m_UnmadeBytes += bytes;
}

std::string_view TreeNodeBinaryParser::ReadStringBytes(std::uint32_t length) {
    if (m_Reader.BytesAtHand() >= length)
        return {reinterpret_cast<const char*>(m_Reader.TakeInPlace(length)), length};
    m_StringBytes.Clear();
    m_Reader.ReadBytesInto(m_StringBytes, length);
    return m_StringBytes.View();
}

bool TreeNodeBinaryParser::ConvertPlainText(std::string_view bytes) {
    m_Converted.resize(bytes.size() / 2);
    for (std::size_t i = 0; i < m_Converted.size(); ++i) {
        const char low = bytes[2 * i + 1];
        if (bytes[2 * i] != 0 || !IsPlainByte(static_cast<std::uint8_t>(low)))
            return false;
        m_Converted[i] = low;
    }
    return true;
}

String TreeNodeBinaryParser::StringFromUtf16(std::string_view bytes) {
    if (ConvertPlainText(bytes))
        return String(m_Converted);
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
    ReportTreeFailure(message, __FILE__, __LINE__);
}

} // namespace Nvr
