#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace ReferenceHost {

/// One thing to be opened.
struct Input {
    enum class Kind {
        /// A file that the plug-in takes by its name.
        Tab,
        /// A file that may be tab under another name: it is opened under a temporary one.
        OtherText,
        /// Standard input, a pipe or a device: read once, then opened under a temporary name.
        Stream,
        /// A finished score.
        Score,
    };

    Kind What = Kind::Tab;
    /// As the user knows it; for standard input a name for people.
    std::filesystem::path Path;
    /// Its place below the folder in which it was found: names what is made of it in a folder of targets.
    std::filesystem::path Relative;

    bool IsStandardInput() const { return What == Kind::Stream && Path == kStandardInput; }
    static constexpr const char* kStandardInput = "standard input";
};

/// The files that the words of a command line stand for, in their order; those of a folder by name. In a
/// folder count .tab, .btab, .crd and the .txt that hold a stave. Folders that cannot be read are told in
/// `problems`, a sentence each.
std::vector<Input> FindInputs(const std::vector<std::string>& words, std::vector<std::string>& problems);

} // namespace ReferenceHost
