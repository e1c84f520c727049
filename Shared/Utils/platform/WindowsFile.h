#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

/// Small change among the Windows sources of this folder; nothing else includes it. Paths are in the system
/// code page, as the services take them.
namespace Nvr::Platform {

/// An open file of the system; closes it.
class WindowsFile {
public:
    explicit WindowsFile(HANDLE handle) : m_Handle(handle) {}
    WindowsFile(const WindowsFile&) = delete;
    WindowsFile& operator=(const WindowsFile&) = delete;
    ~WindowsFile() {
        if (IsOpen())
            CloseHandle(m_Handle);
    }

    HANDLE Get() const { return m_Handle; }
    bool IsOpen() const { return m_Handle != INVALID_HANDLE_VALUE; }

    /// Opens what is at `path`, a file or a folder, links followed, without keeping anyone else from
    /// it. `access` is what it is to be used for; 0 is enough for its facts.
    static HANDLE OpenExisting(const std::string& path, DWORD access) {
        return CreateFileA(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                           nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    }
    /// Makes an empty file. Not through a link either: what has the name already is in the way.
    static HANDLE OpenNew(const std::string& path) {
        return CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                           FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    }

private:
    HANDLE m_Handle;
};

/// The last of the bytes `marks` in a path, or npos. Not the second byte of a character that has two: in some
/// code pages that can be a backslash.
inline std::size_t FindLastMark(std::string_view path, std::string_view marks) {
    std::size_t found = std::string_view::npos;
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (IsDBCSLeadByte(static_cast<BYTE>(path[i])) != FALSE)
            ++i;
        else if (marks.find(path[i]) != std::string_view::npos)
            found = i;
    }
    return found;
}

inline constexpr std::string_view kSeparators = "\\/";

inline bool EndsWithSeparator(std::string_view path) {
    return !path.empty() && FindLastMark(path, kSeparators) == path.size() - 1;
}

/// The folder part of an absolute path, without the separator unless it is the root of a drive.
inline std::string FolderOfPath(const std::string& path) {
    const auto separator = FindLastMark(path, kSeparators);
    if (separator == std::string::npos)
        return {};
    const bool isRoot = separator == 0 || path[separator - 1] == ':';
    return path.substr(0, isRoot ? separator + 1 : separator);
}

/// `name` in `folder`.
inline std::string PathInFolder(const std::string& folder, const std::string& name) {
    return folder.empty() || EndsWithSeparator(folder) ? folder + name : folder + "\\" + name;
}

} // namespace Nvr::Platform
