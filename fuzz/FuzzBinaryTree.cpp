// The binary form of trees in both versions. Property: what was read, written in version 2 and read again is
// the same tree, and the second writing gives the same bytes.

#include "Shared/Utils/FileStream.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "fuzz/FuzzSupport.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

namespace {

std::string Written(const Nvr::TreeNode& tree) {
    const std::string path = FuzzSupport::FreshPath("tree");
    FuzzSupport::Require(tree.SaveToFile(path.c_str(), true, true, 0), "a tree can be written");
    std::ifstream file(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    std::remove(path.c_str());
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string bytes(reinterpret_cast<const char*>(data), size);
    if (size >= 2) {
        bytes[0] = '\0';
        bytes[1] = static_cast<char>(1 + data[1] % 2);
    }
    const std::unique_ptr<Nvr::TreeNodeRoot> tree(Nvr::TreeNode::LoadFromMemory(bytes.data(), bytes.size()));
    if (tree != nullptr) {
        const std::string written = Written(*tree);
        const std::unique_ptr<Nvr::TreeNodeRoot> again(
            Nvr::TreeNode::LoadFromMemory(written.data(), written.size()));
        FuzzSupport::Require(again != nullptr, "a written tree can be read");
        FuzzSupport::Require(Written(*again) == written, "a second writing gives the same bytes");
    }
    Nvr::ClearNodeStringTable();
    return 0;
}
