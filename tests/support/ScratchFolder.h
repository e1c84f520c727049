#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace TestSupport {

/// A folder of the test's own, gone with the object.
class ScratchFolder {
public:
    ScratchFolder() {
        const std::filesystem::path temp = std::filesystem::temp_directory_path();
        std::random_device number;
        do
            m_Path = temp / ("fretline-test-" + std::to_string(number()));
        while (!std::filesystem::create_directory(m_Path));
    }
    ~ScratchFolder() { std::filesystem::remove_all(m_Path); }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& Path() const { return m_Path; }
    /// The path of a new file with these bytes.
    std::string Write(std::string_view name, std::string_view bytes) const {
        const std::filesystem::path path = m_Path / name;
        std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return path.string();
    }
    /// Stores options of the plug-in with this rhythm level.
    void StoreLevel(int level) const {
        Write("FretlineOptions.txt", "\r\n{\r\n\tRhythmLevel \"" + std::to_string(level) + "\"\r\n}\r\n");
    }
    std::string Read(std::string_view name) const {
        std::ifstream file(m_Path / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool IsEmpty() const { return std::filesystem::is_empty(m_Path); }
    std::size_t CountEntries() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(m_Path), {}));
    }

private:
    std::filesystem::path m_Path;
};

} // namespace TestSupport
