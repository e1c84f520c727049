#include "Shared/Utils/platform/NativePaths.h"

#include "Shared/Utils/AsciiChars.h"
#include "Shared/Utils/FileUrl.h"

namespace Nvr::Platform {

namespace {

// An escaped slash would be part of a name, and a zero would end the path: neither can be.
bool HoldsImpossibleEscape(std::string_view url) {
    for (auto percent = url.find('%'); percent != std::string_view::npos;
         percent = url.find('%', percent + 1)) {
        const std::string byte = UnescapeUrl(url.substr(percent, 3));
        if (byte == "/" || byte == std::string_view("\0", 1))
            return true;
    }
    return false;
}

} // namespace

PathParts SplitPath(std::string_view path) {
    const auto slash = path.rfind('/');
    const std::size_t nameStart = slash == std::string_view::npos ? 0 : slash + 1;
    const auto dot = path.rfind('.');
    const std::size_t nameEnd = dot == std::string_view::npos || dot < nameStart ? path.size() : dot;
    return {{},
            std::string(path.substr(0, nameStart)),
            std::string(path.substr(nameStart, nameEnd - nameStart)),
            std::string(path.substr(nameEnd))};
}

std::string JoinPath(const PathParts& parts) {
    std::string path = parts.Drive + parts.Folder;
    if (!parts.Folder.empty() && parts.Folder.back() != '/')
        path += '/';
    path += parts.Name;
    if (!parts.Extension.empty() && parts.Extension.front() != '.')
        path += '.';
    return path + parts.Extension;
}

bool IsTopmostFolder(std::string_view path) {
    return path == "/";
}

std::string UrlOfPath(std::string_view path) {
    if (path.empty() || path.front() != '/')
        return {};
    return std::string(kFileScheme) + EscapeUrlPath(path);
}

std::string PathOfUrl(std::string_view url) {
    if (!Ascii::StartsWithIgnoreCase(url, kFileScheme))
        return {};
    url.remove_prefix(kFileScheme.size());
    if (Ascii::StartsWithIgnoreCase(url, kThisComputer))
        url.remove_prefix(kThisComputer.size());
    if (url.empty() || url.front() != '/' || HoldsImpossibleEscape(url))
        return {};
    return UnescapeUrl(url);
}

} // namespace Nvr::Platform
