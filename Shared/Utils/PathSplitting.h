#pragma once

#include "Shared/Utils/NvrString.h"

/// Native paths as text: taken apart and put together by the platform's rules, without a look at the disk.
namespace Nvr {

/// The drive (empty where there are none), the folder with the separator at its end, the name before its last
/// dot, and the extension with its dot. Each is empty when the path has none; joined they are the path again.
void SplitPath(const String& path, String& drive, String& folder, String& name, String& extension);

/// Puts in the separator after the folder and the dot before the extension where they are missing.
String JoinPath(const String& drive, const String& folder, const String& name, const String& extension);

} // namespace Nvr
