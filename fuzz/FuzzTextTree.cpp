// The text form of trees, in all four kinds of source and both orders of UTF-16 (the first byte picks).
// Property: what was read, written as text and read again is the same tree, as long as each node has a label.

#include "Shared/Utils/FileStream.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "Shared/Utils/tree/TreeNodeExceptions.h"
#include "Shared/Utils/tree/TreeNodeReader.h"
#include "fuzz/FuzzSupport.h"

#include <memory>
#include <string>
#include <vector>

namespace {

using Nvr::TreeNode;
using Nvr::TreeNodeRoot;

std::string Utf16(const std::uint8_t* data, std::size_t size, bool bigEndian) {
    std::string text = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (std::size_t i = 0; i < size; ++i) {
        const char byte = static_cast<char>(data[i]);
        text += bigEndian ? '\0' : byte;
        text += bigEndian ? byte : '\0';
    }
    return text;
}

std::unique_ptr<TreeNodeRoot> ReadFrom(int kind, const std::string& text) {
    if (kind == 0)
        return std::unique_ptr<TreeNodeRoot>(TreeNode::LoadFromString(Nvr::String(text.c_str())));
    if (kind == 1)
        return std::unique_ptr<TreeNodeRoot>(TreeNode::LoadFromMemory(text.data(), text.size()));
    if (kind == 2) {
        const Nvr::ByteBuffer bytes(text.data(), static_cast<int>(text.size()));
        return std::unique_ptr<TreeNodeRoot>(Nvr::TreeNodeReader(bytes).Read(Nvr::String(), 0));
    }
    const FuzzSupport::InputFile file(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    return std::unique_ptr<TreeNodeRoot>(TreeNode::LoadFromFile(file.Path().c_str()));
}

// The form joins a label to an unlabelled node after it, and has no place for a node that is empty
// altogether.
bool HasLabelsOnly(const TreeNode& root) {
    std::vector<const TreeNode*> open{&root};
    while (!open.empty()) {
        const TreeNode* node = open.back();
        open.pop_back();
        if (node->GetLabel().IsEmpty())
            return false;
        for (int i = 0; i < node->GetChildCount(); ++i)
            open.push_back(node->GetChild(i));
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const int kind = data[0] % 4;
    const int width = data[0] / 4 % 3;
    const std::string text = width == 0 ? std::string(reinterpret_cast<const char*>(data + 1), size - 1)
                                        : Utf16(data + 1, size - 1, width == 1);
    if (const auto tree = ReadFrom(kind, text); tree != nullptr && !tree->WasBinary && HasLabelsOnly(*tree)) {
        const Nvr::String written = tree->ToText();
        const std::unique_ptr<TreeNodeRoot> again(TreeNode::LoadFromMemory(written.CStr(), written.Length()));
        FuzzSupport::Require(again != nullptr, "written text can be read");
        FuzzSupport::Require(again->IsSameTree(*tree), "written text reads back as the same tree");
    }
    Nvr::ClearNodeStringTable();
    return 0;
}
