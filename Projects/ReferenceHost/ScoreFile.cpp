#include "Projects/ReferenceHost/ScoreFile.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace ReferenceHost {

namespace fs = std::filesystem;

namespace {

constexpr mode_t kUsualRights = 0666;

bool IsDevice(const fs::path& target) {
    std::error_code failure;
    return fs::exists(target, failure) && !fs::is_regular_file(target, failure);
}

// Gives a new file that mkstemp made the rights that any other new file would get.
void GiveUsualRights(int file) {
    const mode_t mask = umask(0);
    umask(mask);
    fchmod(file, kUsualRights & ~mask);
}

} // namespace

ScoreFile::ScoreFile(fs::path target) : m_Target(std::move(target)) {
    if (IsDevice(m_Target)) {
        m_File = open(m_Target.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
    } else {
        std::error_code failure;
        if (m_Target.has_parent_path())
            fs::create_directories(m_Target.parent_path(), failure);
        m_Beside = m_Target.string() + ".XXXXXX";
        m_File = mkstemp(m_Beside.data());
    }
    if (m_File < 0) {
        Fail();
        m_Beside.clear();
    } else if (!m_Beside.empty()) {
        GiveUsualRights(m_File);
    }
}

ScoreFile::~ScoreFile() {
    Close();
    if (!m_Beside.empty())
        unlink(m_Beside.c_str());
}

void ScoreFile::Write(std::string_view bytes) {
    while (!bytes.empty() && m_Failure == 0) {
        const ssize_t written = write(m_File, bytes.data(), bytes.size());
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
        else if (written == 0 || errno != EINTR)
            Fail();
    }
}

std::string ScoreFile::Finish() {
    if (m_Failure == 0 && !m_Beside.empty() && fsync(m_File) != 0 && errno != EINVAL)
        Fail();
    Close();
    if (m_Failure == 0 && !m_Beside.empty()) {
        if (std::rename(m_Beside.c_str(), m_Target.c_str()) == 0)
            m_Beside.clear();
        else
            Fail();
    }
    return m_Failure == 0 ? std::string()
                          : m_Target.string() + " cannot be written: " + std::strerror(m_Failure);
}

void ScoreFile::Fail() {
    if (m_Failure == 0)
        m_Failure = errno;
}

void ScoreFile::Close() {
    if (m_File >= 0 && close(m_File) != 0)
        Fail();
    m_File = -1;
}

} // namespace ReferenceHost
