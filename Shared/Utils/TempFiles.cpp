#include "Shared/Utils/TempFiles.h"

#include "Shared/Utils/StandardFolders.h"
#include "Shared/Utils/platform/FileServices.h"

#include <cstdlib>
#include <string>

namespace Nvr {

namespace {

constexpr int kTempFileTries = 100;
constexpr int kUniqueFileTries = 5000;
constexpr int kUniqueFileDigits = 10;

String RandomName() {
    std::string name("temp");
    for (int i = 0; i < kUniqueFileDigits; ++i)
        name += static_cast<char>('0' + std::rand() % 10);
    return String(name);
}

DiskFile CreateTempFileIn(const DiskFolder& folder, String& path) {
    if (!folder.Exists())
        return {};
    for (int i = 0; i < kTempFileTries; ++i) {
        DiskFile file(folder, "nv" + String::FromUnsigned64(Platform::UnguessableNumber()), "tmp");
        // Once the file is there nothing asks for memory: nobody could delete it without its path.
        const String itsPath = file.GetPath();
        if (file.CreateNew()) {
            path = itsPath;
            return file;
        }
    }
    return {};
}

} // namespace

DiskFile CreateTempFile() {
    String path;
    return CreateTempFile(path);
}

DiskFile CreateTempFile(const DiskFolder& folder) {
    String path;
    return CreateTempFileIn(folder, path);
}

DiskFile CreateTempFile(String& path) {
    bool ok = false;
    const DiskFolder folder = TempFolder(ok);
    return ok ? CreateTempFileIn(folder, path) : DiskFile();
}

DiskFile UniqueFile(const DiskFolder& folder) {
    for (int i = 0; i < kUniqueFileTries; ++i) {
        DiskFile file(folder, RandomName());
        if (!file.Exists())
            return file;
    }
    return {};
}

} // namespace Nvr
