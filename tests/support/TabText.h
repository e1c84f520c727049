#pragma once

#include "Projects/Fretline/text/TabFile.h"
#include "tests/support/FakeOutput.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

namespace TestSupport {

/// A file in the system's folder for temporary files that holds the given bytes and goes with the object.
class TemporaryFile {
public:
    explicit TemporaryFile(std::string_view bytes) : m_Path(UniquePath()) {
        std::ofstream stream(m_Path, std::ios::binary);
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    ~TemporaryFile() {
        std::error_code ignored;
        std::filesystem::remove(m_Path, ignored);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    Nvr::String Path() const { return Nvr::String(m_Path.string().c_str()); }

private:
    static std::filesystem::path UniquePath() {
        static const std::string process = std::to_string(std::random_device()());
        static int count = 0;
        return std::filesystem::temp_directory_path() /
               ("tab-text-" + process + "-" + std::to_string(++count) + ".tab");
    }

    std::filesystem::path m_Path;
};

inline std::string Repeat(std::string_view text, std::size_t count) {
    std::string repeated;
    for (std::size_t i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

/// The same line for each string of a stave.
inline std::string Stave(const std::string& line, std::size_t strings = 4) {
    return Repeat(line + '\n', strings);
}

/// A text as the analysis and the stave readers get it, and the output that its messages go to.
struct TabText {
    explicit TabText(std::string_view text, const Fretline::FretlineOptions* options = nullptr)
        : File(TemporaryFile(text).Path(), options, &Output) {}

    FakeOutput Output;
    Fretline::TabFile File;
};

} // namespace TestSupport
