#pragma once

#include "Shared/Utils/DeleterHelper.h"
#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "Shared/Utils/tree/TreeNodeList.h"
#include "Shared/Utils/tree/TreeNodeReader.h"
#include "Shared/Utils/tree/TreeSelection.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace Nvr {

/// One read of the binary form, after its two opening bytes. Borrows the reader.
///
/// The document's strings are interned as they come, and kept by index for the references to them. A
/// reference to an index that no string has is the empty string. Of a string that the source cuts off what is
/// there is taken; the next field is then missing, which is the error, as is a number cut off.
///
/// What is not selected is gone through all the same, as later strings may refer to its own, and damage there
/// is damage; but no node is made of it, and no string before it is referred to.
class TreeNodeBinaryParser {
public:
    /// `unicode`: the strings are UTF-16. `selection` is what is wanted below the root; everything when it is
    /// empty. The viewer, which may be none, must outlive this.
    TreeNodeBinaryParser(TreeNodeReader& reader, bool unicode, std::span<const TreeSelection> selection,
                         const NodeViewer& viewer);

    /// Reads the document into `root` and gives it back; null, with a report, when it is damaged or too deep.
    /// Throws what TreeNodeReader::Read does, and the root's own node with it when that is the one found.
    std::unique_ptr<TreeNodeRoot> Parse(std::unique_ptr<TreeNodeRoot> root, const String& stopLabel,
                                        int stopMode);

private:
    /// A node of which children are still to come. Attached to its parent when the last one is there.
    struct OpenNode {
        TDeleterHelper<TreeNode> Node;
        std::uint32_t ChildrenLeft = 0;
        bool IsSought = false;
        bool IsLeftOut = false;
        bool IsShown = false;
        /// Where its children begin in m_Finished.
        int FirstChild = 0;
        /// What is wanted of its children; all when it is empty.
        std::span<const TreeSelection> Selection = {};
    };
    /// Where the bytes of a string stand in m_UnmadeBytes. The size is 0 once the string is made.
    struct UnmadeString {
        std::size_t Start = 0;
        std::size_t Size = 0;
    };

    /// Reads a node without its children; open when some are to come.
    void ReadNode(TDeleterHelper<TreeNode> node);
    /// Reads the next children of the last open node as long as they are of the most frequent kind: without
    /// children, with strings that stood before, and all at hand. False, with nothing read, when the next one
    /// is of another kind or a label is looked for.
    bool ReadKnownLeaves();
    /// Goes through the next children of the last open node as long as they are not selected, their label
    /// stood before, and all is at hand. False, with nothing read, when the next one is another.
    bool PassOverUnwanted();
    /// The string of a field that refers to one or is empty; null for a new string or anything else.
    const String* KnownString(const std::uint8_t* field) const;
    /// What is wanted of a child of the last open node, or of the root when none is open yet; null when the
    /// child is not.
    const TreeSelection* FindSelection(const String& label) const;
    /// Goes through so many nodes and all below them.
    void PassOver(std::uint32_t nodes);
    /// Gives how many nodes there are below.
    std::uint32_t PassOverHead();
    void PassOverString();
    bool IsMade(std::uint32_t number) const {
        return number >= m_Unmade.size() || m_Unmade[number].Size == 0;
    }
    /// Has the node wait for the end of its parent.
    void Finish(TDeleterHelper<TreeNode>& node);
    /// Label, value and child count, and whether the node is the one at which to stop.
    void ReadHead(TreeNode& node, OpenNode& open);
    /// One child of the last open node, or several.
    void ReadNextChildren();
    /// Gives the last open node its children.
    void CloseLastNode();
    void Show(TreeNode& node);

    /// Valid until the next string is read.
    const String& ReadString();
    const String& ReadNewString(std::uint32_t length);
    /// The string of that number, made if it is not; the empty string when there is none.
    const String& StringOfNumber(std::uint32_t number);
    String Made(std::string_view bytes);
    /// False when a field breaks off or is none.
    bool ReadStringField(int& tag, std::uint32_t& number);
    std::string_view ReadStringBytes(std::uint32_t length);
    String StringFromUtf16(std::string_view bytes);
    /// Puts text of nothing but plain bytes into m_Converted; false, with anything there, for other text.
    bool ConvertPlainText(std::string_view bytes);
    /// False when not all of its bytes are there.
    bool ReadNumber(std::uint32_t& number);

    void RaiseEndOfFile() { RaiseError("Unexpected end of file"); }
    void RaiseError(const String& message);

    TreeNodeReader& m_Reader;
    const NodeViewer& m_Viewer;
    bool m_IsUnicode;
    bool m_HasError = false;
    String m_StopLabel;
    int m_StopMode = 0;
    TreeSelection m_RootSelection;
    /// By their number; the empty string for one that is not made.
    std::vector<String> m_Strings;
    /// Not all of them were made at once.
    bool m_HasUnmade = false;
    /// By the same number, as far as the last that was not made.
    std::vector<UnmadeString> m_Unmade;
    std::string m_UnmadeBytes;
    /// From the root down.
    std::vector<OpenNode> m_Open;
    /// Whole subtrees, in order, that wait for the end of their parent. Only so is the size of its list
    /// known: a count that is read may lie.
    TreeNodeList m_Finished;
    String m_Empty;
    // Kept from one call to the next.
    std::vector<std::uint32_t> m_LeftAtLevels;
    ByteBuffer m_StringBytes;
    std::u16string m_Units;
    std::string m_Converted;
};

} // namespace Nvr
