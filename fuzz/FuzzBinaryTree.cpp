// The binary form of trees in both versions. Property: what was read, written in version 2 and read again is
// the same tree, and a further writing gives the same bytes. But for carriage returns, which version 2 has no
// place for: without them strings may become equal, and the second writing shorter.

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

std::unique_ptr<Nvr::TreeNodeRoot> ReadAgain(const std::string& bytes) {
    std::unique_ptr<Nvr::TreeNodeRoot> tree(Nvr::TreeNode::LoadFromMemory(bytes.data(), bytes.size()));
    FuzzSupport::Require(tree != nullptr, "a written tree can be read");
    return tree;
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
        const auto again = ReadAgain(Written(*tree));
        const std::string written = Written(*again);
        const auto onceMore = ReadAgain(written);
        FuzzSupport::Require(onceMore->IsSameTree(*again), "a written tree reads back as the same tree");
        FuzzSupport::Require(Written(*onceMore) == written, "a further writing gives the same bytes");
        if (bytes.find('\r') == std::string::npos) {
            FuzzSupport::Require(again->IsSameTree(*tree), "only carriage returns get lost");
            FuzzSupport::Require(Written(*tree) == written, "a second writing gives the same bytes");
        }
    }
    Nvr::ClearNodeStringTable();
    return 0;
}
