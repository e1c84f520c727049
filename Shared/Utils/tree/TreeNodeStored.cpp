#include "Shared/Utils/tree/TreeNode.h"

#include "Shared/Utils/Stream.h"
#include "Shared/Utils/tree/TreeNodeBinaryWriter.h"
#include "Shared/Utils/tree/TreeNodeReader.h"
#include "Shared/Utils/tree/TreeNodeTextWriter.h"

namespace Nvr {

String TreeNode::ToText() const {
    TreeNodeOutput output;
    TreeNodeTextWriter(output, TreeNodeTextWriter::QuotedValues::AfterBlank).Write(*this, 0);
    return String(output.View());
}

void TreeNode::WriteToStream(OutStream& stream, int depth, bool binary, bool unicode, int encoding) const {
    TreeNodeOutput output(stream);
    if (binary)
        TreeNodeBinaryWriter(output, unicode, encoding).Write(*this);
    else
        TreeNodeTextWriter(output, TreeNodeTextWriter::QuotedValues::AtLabel).Write(*this, depth);
    output.Flush();
}

TreeNodeRoot* TreeNode::LoadFromString(const String& text) {
    return TreeNodeReader(text).Read();
}

TreeNodeRoot* TreeNode::LoadFromMemory(const void* memory, std::size_t size) {
    return TreeNodeReader(memory, size).Read();
}

TreeNodeRoot* TreeNode::LoadFromStream(InStream& stream) {
    return TreeNodeReader(stream).Read();
}

} // namespace Nvr
