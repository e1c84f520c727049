#include "Shared/Utils/platform/NativePaths.h"

#include "Shared/Utils/AsciiChars.h"
#include "Shared/Utils/FileUrl.h"
#include "Shared/Utils/platform/WindowsFile.h"

#include <algorithm>

#include <shlwapi.h>

namespace Nvr::Platform {

namespace {

bool StartsWithDrive(std::string_view path) {
    return path.size() >= 2 && Ascii::IsAlpha(path[0]) && path[1] == ':';
}

bool IsSeparator(char c) {
    return kSeparators.find(c) != std::string_view::npos;
}

// Takes `text` apart in characters, those of two bytes included, and gives what `piece` makes of each.
template <class Piece>
std::string ForEachCharacter(std::string_view text, Piece piece) {
    std::string result;
    for (std::size_t i = 0; i < text.size();) {
        const bool isWide = IsDBCSLeadByte(static_cast<BYTE>(text[i])) != FALSE && i + 1 < text.size();
        const std::size_t length = isWide ? 2 : 1;
        result += piece(text.substr(i, length));
        i += length;
    }
    return result;
}

std::string WithForwardSlashes(std::string_view path) {
    return ForEachCharacter(
        path, [](std::string_view c) { return c == "\\" ? std::string("/") : EscapeUrlPath(c); });
}

// The text of a URL with its slashes as the platform's separators. Empty when an escape stands for a
// separator, which would be part of a name, or for a zero, which would end the path: neither can be.
std::string NativeText(std::string_view url) {
    std::string path;
    bool isSecondByte = false;
    for (std::size_t i = 0; i < url.size(); ++i) {
        const std::string byte = UnescapeUrl(url.substr(i, url[i] == '%' ? 3 : 1));
        const bool isEscape = url[i] == '%' && byte.size() == 1;
        if (isEscape && (byte[0] == '\0' || (!isSecondByte && IsSeparator(byte[0]))))
            return {};
        path += !isEscape && url[i] == '/' ? '\\' : isEscape ? byte[0] : url[i];
        isSecondByte = !isSecondByte && IsDBCSLeadByte(static_cast<BYTE>(path.back())) != FALSE;
        i += isEscape ? 2 : 0;
    }
    return path;
}

} // namespace

PathParts SplitPath(std::string_view path) {
    const std::size_t folderStart = StartsWithDrive(path) ? 2 : 0;
    const std::string_view withoutDrive = path.substr(folderStart);
    const auto separator = FindLastMark(withoutDrive, kSeparators);
    const std::size_t nameStart = separator == std::string_view::npos ? 0 : separator + 1;
    const auto dot = FindLastMark(withoutDrive, ".");
    const std::size_t nameEnd = dot == std::string_view::npos || dot < nameStart ? withoutDrive.size() : dot;
    return {std::string(path.substr(0, folderStart)), std::string(withoutDrive.substr(0, nameStart)),
            std::string(withoutDrive.substr(nameStart, nameEnd - nameStart)),
            std::string(withoutDrive.substr(nameEnd))};
}

std::string JoinPath(const PathParts& parts) {
    std::string path = parts.Drive + parts.Folder;
    if (!parts.Folder.empty() && !EndsWithSeparator(parts.Folder))
        path += '\\';
    path += parts.Name;
    if (!parts.Extension.empty() && parts.Extension.front() != '.')
        path += '.';
    return path + parts.Extension;
}

bool IsTopmostFolder(std::string_view path) {
    const bool isDrive = path.size() == 3 && StartsWithDrive(path);
    const std::string name(EndsWithSeparator(path) && !isDrive ? path.substr(0, path.size() - 1) : path);
    return path == "\\" || PathIsRootA(name.c_str()) != FALSE;
}

// The shell's own services keep to the same form, but leave what lies beyond ASCII as it is or not, and so
// the url of a file and that of the same file as the child of its folder would differ.
std::string UrlOfPath(std::string_view path) {
    std::string native(path);
    std::replace(native.begin(), native.end(), '/', '\\');
    if (native.empty() || PathIsRelativeA(native.c_str()) != FALSE)
        return {};
    const bool isShare = native.starts_with("\\\\");
    if (isShare)
        native.erase(0, 2);
    else if (native.front() != '\\')
        native.insert(0, 1, '\\');
    return std::string(kFileScheme) + WithForwardSlashes(native);
}

std::string PathOfUrl(std::string_view url) {
    if (!Ascii::StartsWithIgnoreCase(url, kFileScheme))
        return {};
    url.remove_prefix(kFileScheme.size());
    if (Ascii::StartsWithIgnoreCase(url, kThisComputer) && url.substr(kThisComputer.size()).starts_with('/'))
        url.remove_prefix(kThisComputer.size());
    std::string path = NativeText(url);
    if (path.empty())
        return {};
    if (path.front() != '\\')
        return path.find(':') < path.find('\\') ? std::string() : "\\\\" + path;
    const std::string_view local = std::string_view(path).substr(1);
    if (!StartsWithDrive(local))
        return path;
    // A drive alone would be the folder that happens to be chosen on it.
    return std::string(local) + (local.size() == 2 ? "\\" : "");
}

} // namespace Nvr::Platform
