#pragma once

#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/tree/FixedString.h"
#include "Shared/Utils/tree/TreeNodePool.h"

#include <cstddef>
#include <new>
#include <span>

namespace Nvr {

class OutStream;
class InStream;
class TreeNodeList;
class TreeNodeRoot;

/// A place on a page, in whole units.
struct TreePoint {
    int X = 0;
    int Y = 0;
};

/// A rectangle by two of its corners.
struct TreeRectangle {
    TreePoint TopLeft;
    TreePoint BottomRight;
};

/// A child to be that has a number for its value. Borrows the label.
struct TreeNumber {
    const FixedString& Label;
    int Value;
};

/// The one document model of the system: a label, a value and an ordered list of children.
///
/// A node owns its children, strictly downward; there is no parent pointer and no type tag. Labels need not
/// be unique among siblings: finding gives the first match, and the order of children is kept by every
/// operation and by both stored forms. Labels and values are interned in the process-wide NodeStringTable.
/// Finders answer null, and nothing here reports an error.
///
/// Operations that take a `TreeNode*` to add take ownership of it, also when they fail. A node is added to
/// one parent, and never to a node below itself. A failed allocation raises the allocation failure, leaks
/// nothing and leaves a sound tree, in which what was done until then may stand. No operation recurses, so a
/// tree may be as deep as memory allows, and destroying one allocates nothing.
///
/// Typed values are decimal text, whatever the locale: whole numbers as "%d", floats as "%f". Text that is no
/// number reads as 0, a number beyond the type's range as the nearest limit. A bool is "True" or "False". A
/// point has the children "X" and "Y", a rectangle the points "TopLeft" and "BottomRight", and no value;
/// a missing child counts as 0.
class TreeNode {
public:
    TreeNode() = default;
    explicit TreeNode(const String& label);
    TreeNode(const String& label, const String& value);
    TreeNode(const String& label, const char* value);
    TreeNode(const String& label, bool value);
    TreeNode(const String& label, int value);
    TreeNode(const String& label, long value);
    TreeNode(const String& label, float value);
    /// Of strings that are looked up once.
    explicit TreeNode(const FixedString& label) : TreeNode(label.Interned(), String(), AreInterned()) {}
    TreeNode(const FixedString& label, const FixedString& value)
        : TreeNode(label.Interned(), value.Interned(), AreInterned()) {}
    TreeNode(const FixedString& label, const String& value);
    TreeNode(const FixedString& label, bool value);
    /// A pointer, such as a literal text, would pass for a bool.
    template <class Pointed>
    TreeNode(const FixedString& label, Pointed* value) = delete;
    TreeNode(const String& label, const TreePoint& value);
    TreeNode(const String& label, const TreeRectangle& value);
    /// A deep copy.
    TreeNode(const TreeNode& other);
    /// Takes label, value and deep copies of the children of `other`, which may lie below this node.
    TreeNode& operator=(const TreeNode& other);
    ~TreeNode();

    /// Nodes lie in the TreeNodePool; a TreeNodeRoot lies in general memory. A node may be deleted through a
    /// TreeNode pointer whichever it is.
    static void* operator new(std::size_t size) {
        void* const cell = size == sizeof(TreeNode) ? TreeNodePool::Shared().Allocate(size) : nullptr;
        return cell != nullptr ? cell : ::operator new(size);
    }
    static void operator delete(void* address) noexcept {
        if (!TreeNodePool::Shared().Release(address))
            ::operator delete(address);
    }
    static void operator delete(TreeNode* node, std::destroying_delete_t) noexcept {
        // What a root has beyond a node needs no destruction.
        node->~TreeNode();
        TreeNode::operator delete(static_cast<void*>(node));
    }

    const String& GetLabel() const { return m_Label; }
    const String& GetValue() const { return m_Value; }
    int GetValueAsInt() const;
    long GetValueAsLong() const;
    float GetValueAsFloat() const;
    /// True for "True" in any case and for "1".
    bool GetValueAsBool() const;
    TreePoint GetValueAsPoint() const;
    TreeRectangle GetValueAsRectangle() const;

    int GetChildCount() const;
    /// The child, or null for an index out of range.
    TreeNode* GetChild(int index) const;
    TreeNode* FindChild(const String& label) const;
    TreeNode* FindChild(const String& label, const String& value) const;

    /// The value of the first child with that label, or the default when there is none.
    const String& GetChildValue(const String& label, const String& defaultValue) const;
    int GetChildValue(const String& label, int defaultValue) const;
    long GetChildValue(const String& label, long defaultValue) const;
    float GetChildValue(const String& label, float defaultValue) const;
    bool GetChildValue(const String& label, bool defaultValue) const;
    TreePoint GetChildValue(const String& label, const TreePoint& defaultValue) const;
    TreeRectangle GetChildValue(const String& label, const TreeRectangle& defaultValue) const;
    /// A pointer, such as a literal text, would pass for a bool.
    template <class Pointed>
    void GetChildValue(const String& label, Pointed* defaultValue) const = delete;
    const String& GetChildValueAtIndex(int index) const;
    /// The same as an integer, or 0.
    int GetChildIntAtIndex(int index) const;

    /// True when both trees have equal labels and values at every position.
    bool IsSameTree(const TreeNode& other) const;

    void SetLabel(const String& label);
    void SetValue(const String& value);
    void SetValue(const char* value);
    void SetValue(int value);
    void SetValue(long value);
    void SetValue(float value);
    void SetValue(bool value);
    void SetValue(const TreePoint& value);
    void SetValue(const TreeRectangle& value);

    /// Makes room for so many children in all, so that adding them moves none.
    void ReserveChildren(int count);
    /// Appends; a null node and the node itself are ignored.
    void AddChild(TreeNode* node);
    /// Appends a child for each of the numbers, in their order.
    void AddNumbers(std::span<const TreeNumber> numbers);
    void AddChildFirst(TreeNode* node);
    /// Before the child at `index`; first for an index below 1, last for one at or past the count.
    void InsertChild(TreeNode* node, int index);
    /// The first child of the same label takes value and copies of the children, and `node` is deleted;
    /// otherwise `node` is appended. Null, the node itself and a child that would merge with itself are
    /// ignored.
    void MergeChild(TreeNode* node);
    /// Takes `node` out when it is a child, and deletes it in either case; null is ignored.
    void RemoveChild(TreeNode* node);
    /// Deletes all children.
    void ClearChildren();
    /// Empties the list without deleting the children, which the caller must hold elsewhere.
    void ForgetChildren();
    /// Replaces the children by deep copies of those of `other`, which may lie below this node; label and
    /// value stay. A failed allocation leaves the children as they were.
    void CopyChildrenFrom(const TreeNode& other);

    /// The text form, from depth 0, with CR LF line ends.
    String ToText() const;
    /// `binary` true gives the binary form, with UTF-16 strings when `unicode` is true; otherwise the text
    /// form at `depth`. `encoding` says from what code page the strings are converted to UTF-16: 1 is the
    /// Macintosh code page, any other number the system's. A failure shows in the stream's state.
    void WriteToStream(OutStream& stream, int depth, bool binary, bool unicode, int encoding) const;
    /// Writes a file of the form that WriteToStream gives at depth 0. False, with a report, when the file
    /// cannot be opened or written; a file that was there is then as it was, unless SafeFileWriter had to
    /// write it in place. A text also waits for the disk, so that a sudden end of the machine spoils nothing.
    bool SaveToFile(const String& fileName, bool binary = false, bool unicode = false,
                    int encoding = 0) const;

    /// The loads take both forms, see TreeNodeReader, and give a tree owned by the caller, or null with
    /// reports. The memory is not needed any longer afterwards.
    static TreeNodeRoot* LoadFromString(const String& text);
    static TreeNodeRoot* LoadFromMemory(const void* memory, std::size_t size);
    static TreeNodeRoot* LoadFromStream(InStream& stream);
    /// A stop label ends the read with an exception, see TreeNodeReader::Read.
    static TreeNodeRoot* LoadFromFile(const String& fileName, const String& stopLabel = String(),
                                      int stopMode = 0);
    /// The value of the first node with that label in the file; empty when there is none. In the text form a
    /// node without a value is passed over.
    static String FindValueInFile(const String& fileName, const String& label);
    /// The first node with that label, owned by the caller; null when there is none. In the text form a node
    /// without braces is passed over. Of a node in which the file breaks off, what was read of it.
    static TreeNode* FindSubTreeInFile(const String& fileName, const String& label);

private:
    friend class TreeNodeBinaryParser;
    friend class TreeNodeBinaryWriter;
    friend class TreeNodeList;

    struct AreInterned {};
    /// For strings that come from the string table.
    TreeNode(const String& label, const String& value, AreInterned /*both*/)
        : m_Label(label), m_Value(value) {}

    TreeNodeList& NeedChildren();
    TreeNode& NeedChild(const FixedString& label);

    String m_Label;
    String m_Value;
    TreeNodeList* m_Children = nullptr;
};

/// What a read returns: the root node, and what the source was.
class TreeNodeRoot : public TreeNode {
public:
    bool WasUnicode = false;
    bool WasBinary = false;
};

/// Makes `string` share the text of the equal string in the process-wide NodeStringTable, entering it when
/// it is not there.
void InternString(String& string);

/// Empties the NodeStringTable. Strings of live nodes stay valid; they stop being shared with later ones.
void ClearNodeStringTable();

} // namespace Nvr
