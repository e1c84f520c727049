#include "Shared/Utils/platform/FileServices.h"

#include "Shared/Utils/platform/PosixFile.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>

namespace Nvr::Platform {

namespace {

constexpr mode_t kRights = S_IRWXU | S_IRWXG | S_IRWXO;
// The system narrows it by the user's mask.
constexpr mode_t kRightsOfNewFiles = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
// As many as the system itself follows.
constexpr int kMostLinks = 40;
constexpr int kNameTries = 100;

std::string LinkTarget(const std::string& link) {
    std::vector<char> target(PATH_MAX);
    const ssize_t length = readlink(link.c_str(), target.data(), target.size());
    return length <= 0 ? std::string() : std::string(target.data(), static_cast<std::size_t>(length));
}

// Writing to a link writes the file that it names, also one that is not there yet. Empty for links in a
// circle.
std::string FollowLinks(std::string path) {
    for (int i = 0; i < kMostLinks; ++i) {
        const std::string target = LinkTarget(path);
        if (target.empty())
            return path;
        path = target.front() == '/' ? target : PathInFolder(FolderOfPath(path), target);
    }
    return {};
}

// Empty, with errno set, when there can be none.
std::string CreateBeside(const std::string& target, mode_t rights) {
    for (int i = 0; i < kNameTries; ++i) {
        std::string path =
            PathInFolder(FolderOfPath(target), ".nv" + std::to_string(UnguessableNumber()) + ".tmp");
        PosixFile file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, rights));
        if (file.IsOpen())
            return path;
        if (errno != EEXIST)
            break;
    }
    return {};
}

// False when the new file could not get the owner, group and rights of the one that it is to replace.
bool TakeOver(const std::string& path, const struct stat& former) {
    struct stat own {};
    if (stat(path.c_str(), &own) != 0)
        return false;
    const bool sameOwner = own.st_uid == former.st_uid && own.st_gid == former.st_gid;
    if (!sameOwner && chown(path.c_str(), former.st_uid, former.st_gid) != 0)
        return false;
    return chmod(path.c_str(), former.st_mode & kRights) == 0;
}

// Writing in place begins with losing what is there: not where the next write may fail like this one.
void MakeBesideOrGiveUp(Replacement& replacement, mode_t rights) {
    replacement.Beside = CreateBeside(replacement.Target, rights);
    const bool isForbidden = errno == EACCES || errno == EPERM;
    if (replacement.Beside.empty() && !isForbidden)
        replacement.Target.clear();
}

bool CopyBytes(int from, int to) {
    std::array<char, 65536> block;
    for (;;) {
        const ssize_t got = read(from, block.data(), block.size());
        if (got == 0)
            return true;
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return false;
        for (ssize_t done = 0; done < got;) {
            const ssize_t put = write(to, block.data() + done, static_cast<std::size_t>(got - done));
            if (put < 0 && errno != EINTR)
                return false;
            done += put > 0 ? put : 0;
        }
    }
}

bool IsSameFile(const struct stat& first, const struct stat& second) {
    return first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

bool WriteCopy(int source, mode_t rights, const std::string& path) {
    PosixFile copy(open(path.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC));
    return copy.IsOpen() && CopyBytes(source, copy.Get()) && fchmod(copy.Get(), rights & kRights) == 0 &&
           copy.Close();
}

} // namespace

Replacement PrepareReplacement(const std::string& path) {
    Replacement result{FollowLinks(path), {}};
    if (result.Target.empty())
        return result;
    struct stat former {};
    if (stat(result.Target.c_str(), &former) != 0) {
        MakeBesideOrGiveUp(result, kRightsOfNewFiles);
        return result;
    }
    // A file that may not be written is not to be replaced either.
    if (!S_ISREG(former.st_mode) || former.st_nlink > 1 ||
        faccessat(AT_FDCWD, result.Target.c_str(), W_OK, AT_EACCESS) != 0)
        return result;
    MakeBesideOrGiveUp(result, S_IRUSR | S_IWUSR);
    if (!result.Beside.empty() && !TakeOver(result.Beside, former)) {
        RemoveFile(result.Beside);
        result.Beside.clear();
    }
    return result;
}

bool FinishReplacement(const Replacement& replacement) {
    return std::rename(replacement.Beside.c_str(), replacement.Target.c_str()) == 0;
}

bool CopyFileContents(const std::string& from, const std::string& to) {
    struct stat source {};
    struct stat target {};
    const PosixFile file(open(from.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file.IsOpen() || fstat(file.Get(), &source) != 0 || !S_ISREG(source.st_mode))
        return false;
    if (stat(to.c_str(), &target) == 0 && IsSameFile(source, target))
        return false;
    const Replacement replacement = PrepareReplacement(to);
    if (replacement.Beside.empty())
        return !replacement.Target.empty() && ExamineFile(to).Kind == FileKind::File &&
               WriteCopy(file.Get(), target.st_mode, to);
    if (WriteCopy(file.Get(), source.st_mode, replacement.Beside) && FinishReplacement(replacement))
        return true;
    RemoveFile(replacement.Beside);
    return false;
}

} // namespace Nvr::Platform
