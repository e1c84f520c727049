#include "Projects/ReferenceHost/RunFolder.h"

#include <cstdlib>
#include <fstream>
#include <linux/magic.h>
#include <sys/statfs.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace ReferenceHost {

namespace fs = std::filesystem;

namespace {

constexpr const char* kFolderVariable = "TMPDIR";
constexpr const char* kPlaceInMemory = "/dev/shm";

// Writing a larger one to a disk takes little beside its conversion.
constexpr std::uintmax_t kLargestTextInMemory = 256UL * 1024;
// A note may be one character of a text, and is a hundred bytes and more in a score.
constexpr std::uintmax_t kScoreBytesOfCharacter = 128;
constexpr std::uintmax_t kEmptyScore = 2UL * 1024 * 1024;
// What is free is not this process's alone.
constexpr std::uintmax_t kShareOfFree = 8;

// Empty when none can be made.
fs::path MakeFolderIn(const fs::path& place) {
    const std::string pattern = (place / "fretline-run-XXXXXX").string();
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    return mkdtemp(name.data()) == nullptr ? fs::path() : fs::path(name.data());
}

fs::path MakeFolderInMemory() {
    struct statfs facts {};
    if (std::getenv(kFolderVariable) != nullptr || statfs(kPlaceInMemory, &facts) != 0 ||
        facts.f_type != TMPFS_MAGIC)
        return {};
    return MakeFolderIn(kPlaceInMemory);
}

bool HasRoomInMemory(const fs::path& folder, std::uintmax_t textSize) {
    struct statfs facts {};
    if (folder.empty() || textSize > kLargestTextInMemory || statfs(folder.c_str(), &facts) != 0)
        return false;
    const std::uintmax_t free = facts.f_bavail * static_cast<std::uintmax_t>(facts.f_bsize);
    return kEmptyScore + textSize * kScoreBytesOfCharacter <= free / kShareOfFree;
}

// Every process has its own, so that workers don't meet.
fs::path TemporaryName(const fs::path& folder, const std::string& stem) {
    std::error_code failure;
    const fs::path own = folder / std::to_string(getpid());
    fs::create_directory(own, failure);
    return own / (stem + ".tab");
}

} // namespace

RunFolder::RunFolder() : m_InMemory(MakeFolderInMemory()), m_Process(getpid()) {
    std::error_code failure;
    if (const fs::path usual = fs::temp_directory_path(failure); !failure)
        m_Usual = MakeFolderIn(usual);
    MakeReadyFor(0);
}

RunFolder::~RunFolder() {
    std::error_code failure;
    for (const fs::path& folder : {m_InMemory, m_Usual})
        if (!folder.empty() && m_Process == getpid())
            fs::remove_all(folder, failure);
}

const fs::path& RunFolder::MakeReadyFor(std::uintmax_t textSize) const {
    const bool isInMemory = m_Usual.empty() || HasRoomInMemory(m_InMemory, textSize);
    const fs::path& folder = isInMemory ? m_InMemory : m_Usual;
    if (!folder.empty())
        setenv(kFolderVariable, folder.c_str(), 1);
    return folder;
}

TemporaryTab TemporaryTab::NameFor(const RunFolder& folder, const fs::path& file) {
    const fs::path name = TemporaryName(folder.Path(), file.stem().string());
    std::error_code failure;
    fs::create_symlink(fs::absolute(file), name, failure);
    return TemporaryTab(failure ? fs::path() : name);
}

TemporaryTab TemporaryTab::Write(const RunFolder& folder, const std::string& stem, std::string_view bytes) {
    const fs::path name = TemporaryName(folder.MakeReadyFor(bytes.size()), stem);
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
