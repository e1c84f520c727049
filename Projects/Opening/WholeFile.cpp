#include "Projects/Opening/WholeFile.h"

#include <fstream>
#include <vector>

namespace Opening {

namespace {
constexpr std::size_t kBlockSize = 65536;
}

// In blocks: byte by byte would cost more than reading what the bytes say.
std::optional<std::string> ReadWholeFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    std::string bytes;
    std::error_code isStream;
    if (const std::uintmax_t size = std::filesystem::file_size(path, isStream); !isStream)
        bytes.reserve(static_cast<std::size_t>(size));
    std::vector<char> block(kBlockSize);
    while (file) {
        file.read(block.data(), static_cast<std::streamsize>(block.size()));
        bytes.append(block.data(), static_cast<std::size_t>(file.gcount()));
    }
    if (file.bad())
        return std::nullopt;
    return bytes;
}

} // namespace Opening
