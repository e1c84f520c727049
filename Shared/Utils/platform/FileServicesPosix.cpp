#include "Shared/Utils/platform/FileServices.h"

#include "Shared/Utils/platform/PosixFile.h"
#include "Shared/Utils/platform/PosixSystem.h"

#include <cerrno>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace Nvr::Platform {

namespace {

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;
constexpr mode_t kAllWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t kAllRights = S_IRWXU | S_IRWXG | S_IRWXO;

// There is no attribute for it: a name that begins with a dot is not shown.
bool HasHiddenName(const std::string& path) {
    const auto end = path.find_last_not_of('/');
    if (end == std::string::npos)
        return false;
    const auto slash = path.rfind('/', end);
    return path[slash == std::string::npos ? 0 : slash + 1] == '.';
}

bool IsDotOrDotDot(const char* name) {
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

std::int64_t EarliestTime(const std::string& path, const struct stat& facts) {
    return BirthTime(path).value_or(facts.st_mtime < facts.st_ctime ? facts.st_mtime : facts.st_ctime);
}

} // namespace

FileFacts ExamineFile(const std::string& path) {
    struct stat facts {};
    if (path.empty() || stat(path.c_str(), &facts) != 0)
        return {};
    FileFacts result;
    result.Kind = S_ISDIR(facts.st_mode) ? FileKind::Folder : FileKind::File;
    result.IsRegular = S_ISREG(facts.st_mode);
    result.IsHidden = HasHiddenName(path);
    result.IsReadOnly = (facts.st_mode & kAllWrite) == 0;
    result.Size = facts.st_size;
    result.ModificationTime = facts.st_mtime;
    result.CreationTime = EarliestTime(path, facts);
    return result;
}

bool CanReadFile(const std::string& path) {
    // Nobody may be at the other end of a pipe.
    return PosixFile(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)).IsOpen();
}

bool IsEmptyFolder(const std::string& path) {
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(path.c_str()), closedir);
    if (folder == nullptr)
        return false;
    errno = 0;
    while (const dirent* const entry = readdir(folder.get())) {
        if (!IsDotOrDotDot(entry->d_name))
            return false;
    }
    return errno == 0;
}

bool SetFileHidden(const std::string& path, bool hidden) {
    const FileFacts facts = ExamineFile(path);
    return facts.Kind != FileKind::Missing && facts.IsHidden == hidden;
}

bool SetFileReadOnly(const std::string& path, bool readOnly) {
    struct stat facts {};
    if (stat(path.c_str(), &facts) != 0)
        return false;
    const mode_t rights = facts.st_mode & (kAllRights | S_ISUID | S_ISGID | S_ISVTX);
    return chmod(path.c_str(), readOnly ? rights & ~kAllWrite : rights | S_IWUSR) == 0;
}

bool RemoveFile(const std::string& path) {
    struct stat facts {};
    if (lstat(path.c_str(), &facts) != 0 || S_ISDIR(facts.st_mode))
        return false;
    return unlink(path.c_str()) == 0;
}

bool MakeFolder(const std::string& path) {
    if (path.empty() || path.front() != '/')
        return false;
    for (std::size_t slash = path.find('/', 1); slash != std::string::npos; slash = path.find('/', slash + 1))
        mkdir(path.substr(0, slash).c_str(), S_IRWXU);
    mkdir(path.c_str(), S_IRWXU);
    return ExamineFile(path).Kind == FileKind::Folder;
}

bool CreatePrivateFile(const std::string& path) {
    // Closing it can lose nothing.
    return PosixFile(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kOwnerOnly))
        .IsOpen();
}

} // namespace Nvr::Platform
