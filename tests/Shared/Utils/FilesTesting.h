#pragma once

#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/SafeFileWriter.h"
#include "tests/support/Environment.h"
#include "tests/support/ScratchFolder.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

/// What the tests of files share.
namespace FilesTesting {

using TestSupport::Environment;

/// A path written with slashes from the topmost folder on, in the platform's own form.
inline std::string Native(std::string path) {
    if constexpr (std::filesystem::path::preferred_separator == '/')
        return path;
    for (char& c : path)
        c = c == '/' ? '\\' : c;
    return path.empty() ? path : "C:" + path;
}

/// A folder of the test's own, gone with the object. Names are bytes, not text that must be valid.
class Scratch : private TestSupport::ScratchFolder {
public:
    std::string Path() const { return ScratchFolder::Path().string(); }
    std::string Path(const std::string& name) const {
        return Path() + static_cast<char>(std::filesystem::path::preferred_separator) + name;
    }
    Nvr::String PathText(const std::string& name) const { return Nvr::String(Path(name)); }
    /// Makes a file; gives its path.
    std::string Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(Path(name), std::ios::binary) << bytes;
        return Path(name);
    }
    std::size_t CountEntries() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(ScratchFolder::Path()),
                          std::filesystem::directory_iterator()));
    }
};

inline std::string ReadAll(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline std::string Text(const Nvr::String& text) {
    return std::string(text.View());
}

/// Puts a new file with this text at the path, in the careful way.
inline bool WriteSafely(const std::string& path, const char* text) {
    Nvr::SafeFileWriter writer{Nvr::String(path)};
    writer.Stream() << text;
    return writer.Commit();
}

} // namespace FilesTesting
