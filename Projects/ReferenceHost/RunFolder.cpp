#include "Projects/ReferenceHost/RunFolder.h"

#include <cstdlib>
#include <fstream>
#include <unistd.h>
#include <utility>
#include <vector>

namespace ReferenceHost {

namespace fs = std::filesystem;

namespace {

// Every process has its own, so that workers don't meet.
fs::path TemporaryName(const RunFolder& folder, const std::string& stem) {
    std::error_code failure;
    const fs::path own = folder.Path() / std::to_string(getpid());
    fs::create_directory(own, failure);
    return own / (stem + ".tab");
}

} // namespace

RunFolder::RunFolder() : m_Process(getpid()) {
    std::error_code failure;
    const std::string pattern = (fs::temp_directory_path(failure) / "fretline-run-XXXXXX").string();
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    if (failure || mkdtemp(name.data()) == nullptr)
        return;
    m_Path = name.data();
    setenv("TMPDIR", m_Path.c_str(), 1);
}

RunFolder::~RunFolder() {
    std::error_code failure;
    if (!m_Path.empty() && m_Process == getpid())
        fs::remove_all(m_Path, failure);
}

TemporaryTab TemporaryTab::NameFor(const RunFolder& folder, const fs::path& file) {
    const fs::path name = TemporaryName(folder, file.stem().string());
    std::error_code failure;
    fs::create_symlink(fs::absolute(file), name, failure);
    return TemporaryTab(failure ? fs::path() : name);
}

TemporaryTab TemporaryTab::Write(const RunFolder& folder, const std::string& stem, std::string_view bytes) {
    const fs::path name = TemporaryName(folder, stem);
    std::ofstream file(name, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    return TemporaryTab(file ? name : fs::path());
}

TemporaryTab::TemporaryTab(TemporaryTab&& other) noexcept : m_Path(std::exchange(other.m_Path, {})) {}

TemporaryTab& TemporaryTab::operator=(TemporaryTab&& other) noexcept {
    m_Path.swap(other.m_Path);
    return *this;
}

TemporaryTab::~TemporaryTab() {
    std::error_code failure;
    if (!m_Path.empty())
        fs::remove(m_Path, failure);
}

} // namespace ReferenceHost
