#pragma once

#include "Projects/Tools/TemplateBuilder/Expander.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "tests/support/ScratchFolder.h"

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

/// A folder of template sources that goes with the object.
class TemplateFolder {
public:
    TemplateFolder() {
        for (const char* folder : {"tables", "schemas", "sections"})
            std::filesystem::create_directories(m_Folder.Path() / folder);
    }

    void Write(const std::string& path, std::string_view text) { m_Folder.Write(path, text); }

    std::string Path() const { return m_Folder.Path().string(); }

    /// The text form of what the sources make, with plain line ends and no indentation.
    std::string Built() const {
        const std::unique_ptr<Nvr::TreeNode> tree = TemplateBuilder::Expander(Path()).Build();
        std::string text(tree->ToText().View());
        std::erase(text, '\r');
        std::erase(text, '\t');
        return text;
    }

    /// The sentence with which the build of the sources fails; empty when it does not fail.
    std::string Failure() const {
        try {
            TemplateBuilder::Expander(Path()).Build();
        } catch (const std::runtime_error& failure) {
            return failure.what();
        }
        return {};
    }

private:
    TestSupport::ScratchFolder m_Folder;
};
