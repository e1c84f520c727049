#include "Projects/ReferenceHost/ScoreFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace ReferenceHost {

namespace {

constexpr mode_t kUsualRights = 0666;

std::string Why(const std::filesystem::path& target) {
    return target.string() + " cannot be written: " + std::strerror(errno);
}

bool WriteAll(int file, const std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t written = write(file, bytes.data() + done, bytes.size() - done);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        done += static_cast<std::size_t>(written);
    }
    return fsync(file) == 0 || errno == EINVAL;
}

// Gives a new file that mkstemp made the rights that any other new file would get.
void GiveUsualRights(int file) {
    const mode_t mask = umask(0);
    umask(mask);
    fchmod(file, kUsualRights & ~mask);
}

} // namespace

std::string WriteWholeFile(const std::filesystem::path& target, const std::string& bytes) {
    std::error_code failure;
    if (std::filesystem::exists(target, failure) && !std::filesystem::is_regular_file(target, failure)) {
        std::ofstream device(target, std::ios::binary);
        device.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        device.close();
        return device ? std::string() : Why(target);
    }
    if (target.has_parent_path())
        std::filesystem::create_directories(target.parent_path(), failure);
    const std::string pattern = target.string() + ".XXXXXX";
    std::vector<char> beside(pattern.begin(), pattern.end());
    beside.push_back('\0');
    const int file = mkstemp(beside.data());
    if (file < 0)
        return Why(target);
    GiveUsualRights(file);
    const bool written = WriteAll(file, bytes);
    const bool good = (close(file) == 0) && written && std::rename(beside.data(), target.c_str()) == 0;
    if (good)
        return {};
    const std::string why = Why(target);
    unlink(beside.data());
    return why;
}

} // namespace ReferenceHost
