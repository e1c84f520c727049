#include "Shared/Utils/FileUrl.h"
#include "Shared/Utils/platform/FileServices.h"
#include "Shared/Utils/platform/PosixFile.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>

namespace Nvr::Platform {

namespace {

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;
constexpr int kNameTries = 1000;
constexpr const char* kNoteExtension = ".trashinfo";

std::string TimeOfDeletion() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    std::array<char, 32> text{};
    if (localtime_r(&now, &parts) == nullptr)
        return {};
    return std::string(text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", &parts));
}

// False with errno EEXIST when the name is taken.
bool WriteNote(const std::string& path, std::string_view text) {
    PosixFile file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOwnerOnly));
    if (!file.IsOpen())
        return false;
    const bool written = write(file.Get(), text.data(), text.size()) == static_cast<ssize_t>(text.size());
    if (file.Close() && written)
        return true;
    RemoveFile(path);
    errno = EIO;
    return false;
}

// The note says where the file was; making it takes the name.
std::string TakeName(const std::string& notes, const std::string& path) {
    const std::string name = path.substr(path.rfind('/') + 1);
    const std::string text =
        "[Trash Info]\nPath=" + EscapeUrlPath(path) + "\nDeletionDate=" + TimeOfDeletion() + "\n";
    for (int i = 1; i <= kNameTries; ++i) {
        std::string taken = i == 1 ? name : name + "." + std::to_string(i);
        if (WriteNote(PathInFolder(notes, taken + kNoteExtension), text))
            return taken;
        if (errno != EEXIST)
            break;
    }
    return {};
}

} // namespace

// The user's trash folder as desktops keep it. A file on another disk is not moved there: it would have to be
// copied.
bool MoveFileToRecyclePlace(const std::string& path) {
    const std::string data = UserDataFolderPath();
    if (data.empty() || ExamineFile(path).Kind != FileKind::File)
        return false;
    const std::string files = PathInFolder(data, "Trash/files");
    const std::string notes = PathInFolder(data, "Trash/info");
    if (!MakeFolder(files) || !MakeFolder(notes))
        return false;
    const std::string name = TakeName(notes, path);
    if (name.empty())
        return false;
    const std::string kept = PathInFolder(files, name);
    if (renameat2(AT_FDCWD, path.c_str(), AT_FDCWD, kept.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    RemoveFile(PathInFolder(notes, name + kNoteExtension));
    return false;
}

} // namespace Nvr::Platform
