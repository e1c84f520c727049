#include "Shared/Utils/platform/FileServices.h"
#include "Shared/Utils/platform/WindowsFile.h"

#include <array>

#include <shellapi.h>

namespace Nvr::Platform {

namespace {

// On other drives the shell would delete for good.
bool IsOnFixedDrive(const std::string& path) {
    std::array<char, MAX_PATH> root{};
    return GetVolumePathNameA(path.c_str(), root.data(), static_cast<DWORD>(root.size())) != FALSE &&
           GetDriveTypeA(root.data()) == DRIVE_FIXED;
}

} // namespace

bool MoveFileToRecyclePlace(const std::string& path) {
    if (ExamineFile(path).Kind != FileKind::File || !IsOnFixedDrive(path))
        return false;
    // A list of paths, each with a zero after it and one more at the end.
    const std::string list = path + '\0';
    SHFILEOPSTRUCTA operation{};
    operation.wFunc = FO_DELETE;
    operation.pFrom = list.c_str();
    operation.fFlags =
        FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_NOERRORUI | FOF_SILENT | FOF_NORECURSION | FOF_FILESONLY;
    return SHFileOperationA(&operation) == 0 && operation.fAnyOperationsAborted == FALSE &&
           ExamineFile(path).Kind == FileKind::Missing;
}

} // namespace Nvr::Platform
