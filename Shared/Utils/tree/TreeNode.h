#pragma once

#include "Shared/Utils/NvrString.h"

#include <cstddef>

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

/// The one document model of the system: a label, a value and an ordered list of children.
///
/// A node owns its children, strictly downward; there is no parent pointer and no type tag. Labels need not
/// be unique among siblings: finding gives the first match, and the order of children is kept by every
/// operation and by both stored forms. Labels and values are interned in the process-wide NodeStringTable.
/// Operations that take a `TreeNode*` to add take ownership of it. Finders answer null, and nothing here
/// reports an error. No operation recurses, so a tree may be as deep as memory allows.
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
    TreeNode(const String& label, const TreePoint& value);
    TreeNode(const String& label, const TreeRectangle& value);
    TreeNode(const TreeNode& other);
    TreeNode& operator=(const TreeNode& other);
    ~TreeNode();

    static void* operator new(std::size_t size);
    static void operator delete(void* address) noexcept;

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

    /// Appends; a null node and the node itself are ignored.
    void AddChild(TreeNode* node);
    void AddChildFirst(TreeNode* node);
    /// Before the child at `index`; first for an index below 1, last for one at or past the count.
    void InsertChild(TreeNode* node, int index);
    /// A child of the same label takes value and copies of the children, and `node` is deleted; otherwise
    /// `node` is appended.
    void MergeChild(TreeNode* node);
    /// Takes `node` out when it is a child, and deletes it in either case.
    void RemoveChild(TreeNode* node);
    void ClearChildren();
    /// Empties the list without deleting the children, which the caller must hold elsewhere.
    void ForgetChildren();
    /// Replaces the children by deep copies; label and value stay.
    void CopyChildrenFrom(const TreeNode& other);

    /// The text form, from depth 0.
    String ToText() const;
    /// `binary` true gives the binary form, with UTF-16 strings when `unicode` is true; otherwise the text
    /// form at `depth`. `encoding` is 0 for the system code page, 1 for the Macintosh code page.
    void WriteToStream(OutStream& stream, int depth, bool binary, bool unicode, int encoding) const;
    /// False, with a report, when the file cannot be opened or written.
    bool SaveToFile(const String& fileName, bool binary = false, bool unicode = false, int encoding = 0) const;

    /// The loads give a tree owned by the caller, or null with reports.
    static TreeNodeRoot* LoadFromString(const String& text);
    static TreeNodeRoot* LoadFromMemory(const void* memory, std::size_t size);
    static TreeNodeRoot* LoadFromStream(InStream& stream);
    static TreeNodeRoot* LoadFromFile(const String& fileName, const String& stopLabel = String(),
                                      int stopMode = 0);
    /// The value of the first node with that label in the file; empty when there is none.
    static String FindValueInFile(const String& fileName, const String& label);
    /// The first node with that label, whole, owned by the caller; null when there is none.
    static TreeNode* FindSubTreeInFile(const String& fileName, const String& label);

private:
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
