#pragma once

#include <string>
#include <string_view>

/// How the platform writes paths, as text alone: nothing here looks at the disk. One source a platform.
namespace Nvr::Platform {

/// The four parts of a path; together they are the path again.
struct PathParts {
    /// Empty on platforms without drives.
    std::string Drive;
    /// With the separator at its end.
    std::string Folder;
    /// The part after the folder and before the last dot.
    std::string Name;
    /// With its dot; empty when there is no dot.
    std::string Extension;
};

PathParts SplitPath(std::string_view path);
/// Puts in the separator after the folder and the dot before the extension where they are missing.
std::string JoinPath(const PathParts& parts);

/// True for an absolute path of a folder that no other holds: the root, a drive, a share.
bool IsTopmostFolder(std::string_view path);

/// The file URL of an absolute path, any bytes; empty for another path.
std::string UrlOfPath(std::string_view path);
/// The path of a file URL; empty for a URL of another kind and for one that names no path of the platform.
std::string PathOfUrl(std::string_view url);

} // namespace Nvr::Platform
