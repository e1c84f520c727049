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

} // namespace

DiskFile CreateTempFile() {
    bool ok = false;
    const DiskFolder folder = TempFolder(ok);
    return ok ? CreateTempFile(folder) : DiskFile();
}

DiskFile CreateTempFile(const DiskFolder& folder) {
    if (!folder.Exists())
        return {};
    for (int i = 0; i < kTempFileTries; ++i) {
        DiskFile file(folder, "nv" + String::FromUnsigned64(Platform::UnguessableNumber()), "tmp");
        if (file.CreateNew())
            return file;
    }
    return {};
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
