// template_builder FOLDER OUTPUT: turns the sources of a template into the data object that a plug-in embeds.

#include "Projects/Tools/TemplateBuilder/Expander.h"
#include "Shared/Utils/tree/TreeNode.h"

#include <cstdio>
#include <exception>
#include <memory>

namespace {

constexpr int kExitFailed = 1;
constexpr int kExitWrongCall = 2;
constexpr int kSystemCodePage = 0;

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: template_builder FOLDER OUTPUT\n", stderr);
        return kExitWrongCall;
    }
    try {
        const std::unique_ptr<Nvr::TreeNode> tree = TemplateBuilder::Expander(argv[1]).Build();
        if (tree->SaveToFile(argv[2], true, true, kSystemCodePage))
            return 0;
        std::fprintf(stderr, "template_builder: %s cannot be written\n", argv[2]);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "template_builder: %s\n", failure.what());
    }
    return kExitFailed;
}
