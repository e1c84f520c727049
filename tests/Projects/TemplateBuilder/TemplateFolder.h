#pragma once

#include "Projects/TemplateBuilder/Expander.h"
#include "Shared/Utils/tree/TreeNode.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>

/// A folder of template sources that goes with the object.
class TemplateFolder {
public:
    TemplateFolder() : m_Path(UniquePath()) {
        for (const char* folder : {"tables", "schemas", "sections"})
            std::filesystem::create_directories(m_Path / folder);
    }
    ~TemplateFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_Path, ignored);
    }
    TemplateFolder(const TemplateFolder&) = delete;
    TemplateFolder& operator=(const TemplateFolder&) = delete;

    void Write(const std::string& path, std::string_view text) {
        std::ofstream stream(m_Path / path, std::ios::binary);
        stream.write(text.data(), static_cast<std::streamsize>(text.size()));
    }

    std::string Path() const { return m_Path.string(); }

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
    static std::filesystem::path UniquePath() {
        static const std::string process = std::to_string(std::random_device()());
        static int count = 0;
        return std::filesystem::temp_directory_path() /
               ("template-" + process + "-" + std::to_string(++count));
    }

    std::filesystem::path m_Path;
};
