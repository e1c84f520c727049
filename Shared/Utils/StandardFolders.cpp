#include "Shared/Utils/StandardFolders.h"

#include "Shared/Utils/platform/FileServices.h"

namespace Nvr {

namespace {

constexpr const char* kVendorFolder = "Notavera Software";
constexpr const char* kProductFolder = "Notavera";
constexpr const char* kLogsFolder = "Logs";

DiskFolder FolderAt(const std::string& path) {
    return DiskFolder(String(path));
}

DiskFolder DataFolder(const std::string& path, bool first, bool second) {
    DiskFolder folder = FolderAt(path);
    if (first)
        folder = DiskFolder(folder, kVendorFolder);
    if (second)
        folder = DiskFolder(folder, kProductFolder);
    return folder;
}

} // namespace

DiskFolder TempFolder(bool& ok) {
    DiskFolder folder = FolderAt(Platform::TemporaryFolder());
    ok = folder.Exists();
    return folder;
}

DiskFolder ApplicationFolder() {
    return FolderAt(Platform::ExecutableFolder());
}

DiskFolder UserDataFolder(bool first, bool second) {
    return DataFolder(Platform::UserDataFolderPath(), first, second);
}

DiskFolder CommonDataFolder(bool first, bool second) {
    return DataFolder(Platform::CommonDataFolderPath(), first, second);
}

DiskFolder LogsFolder() {
    DiskFolder logs(UserDataFolder(true, false), kLogsFolder);
    Platform::MakeFolder(std::string(logs.GetPath().View()));
    return logs;
}

} // namespace Nvr
