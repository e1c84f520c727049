#pragma once

#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/tree/TreeNodeOutput.h"
#include "Shared/Utils/tree/TreeNodeStringIndexes.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace Nvr {

class TreeNode;
class TreeNodeList;

/// Writes the binary form of one tree. Each string stands in full once; later ones refer to it by its index
/// in the order of writing. With UTF-16 strings carriage returns are left out; a string of nothing else is
/// then written as the empty string it becomes.
class TreeNodeBinaryWriter {
public:
    /// `encoding`: what code page the strings are taken to be in when they become UTF-16, see
    /// ConvertToUtf16.
    TreeNodeBinaryWriter(TreeNodeOutput& output, bool unicode, int encoding);

    /// Stops when the output's stream has failed. REQUIRES: called once; the tree does not change meanwhile.
    void Write(const TreeNode& root);

private:
    /// The children of a node on the way down, and the one that comes next.
    struct Level {
        const TreeNodeList* Children;
        int Next;
    };

    /// Writes the next children of the level up to the first that has children, which are the result; null
    /// at the end of the level, and when the output has failed.
    const TreeNodeList* WriteChildren(Level& level);
    /// The node's label, value and child count; the children, or null.
    const TreeNodeList* WriteNodeHead(const TreeNode& node);
    /// Where the string has to be written in full, or is looked up by its content.
    void WriteString(const String& string);
    /// The index as FindOrAdd gives it, of a string that may be empty.
    std::uint32_t KnownIndexOf(const String& string) const {
        return string.IsEmpty() ? TreeNodeStringIndexes::kWrittenEmpty : m_Indexes.FindByMark(string);
    }
    void WriteNewString(const String& string);
    /// The head of a string of `size` bytes, and the place where to write them.
    char* StartNewString(std::size_t size);

    TreeNodeOutput& m_Output;
    bool m_IsUnicode;
    int m_Encoding;
    bool m_HasWritten = false;
    TreeNodeStringIndexes m_Indexes;
    // Kept from string to string.
    std::u16string m_Units;
};

} // namespace Nvr
