#include "Shared/Utils/PathSplitting.h"

#include "Shared/Utils/platform/NativePaths.h"

namespace Nvr {

void SplitPath(const String& path, String& drive, String& folder, String& name, String& extension) {
    // The path may be one of the results as well.
    const Platform::PathParts parts = Platform::SplitPath(path.View());
    drive = String(parts.Drive);
    folder = String(parts.Folder);
    name = String(parts.Name);
    extension = String(parts.Extension);
}

String JoinPath(const String& drive, const String& folder, const String& name, const String& extension) {
    return String(Platform::JoinPath({std::string(drive.View()), std::string(folder.View()),
                                      std::string(name.View()), std::string(extension.View())}));
}

} // namespace Nvr
