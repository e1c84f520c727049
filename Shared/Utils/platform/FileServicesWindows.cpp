#include "Shared/Utils/platform/FileServices.h"

#include "Shared/Utils/platform/WindowsFile.h"

#include <array>

#include <shlwapi.h>

namespace Nvr::Platform {

namespace {

std::int64_t Wide(DWORD high, DWORD low) {
    return static_cast<std::int64_t>((std::uint64_t{high} << 32U) | low);
}

// The system counts tenths of a microsecond since 1601.
std::int64_t SecondsSince1970(const FILETIME& time) {
    constexpr std::int64_t kTicksPerSecond = 10'000'000;
    constexpr std::int64_t kSecondsFrom1601 = 11'644'473'600;
    return Wide(time.dwHighDateTime, time.dwLowDateTime) / kTicksPerSecond - kSecondsFrom1601;
}

bool IsSet(const FILETIME& time) {
    return time.dwHighDateTime != 0 || time.dwLowDateTime != 0;
}

// The system tells the same in two records.
template <class Record>
FileFacts FactsFrom(const Record& record) {
    FileFacts facts;
    const bool isFolder = (record.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    facts.Kind = isFolder ? FileKind::Folder : FileKind::File;
    facts.IsRegular = !isFolder;
    facts.IsHidden = (record.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0;
    facts.IsReadOnly = (record.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
    facts.Size = Wide(record.nFileSizeHigh, record.nFileSizeLow);
    facts.ModificationTime = SecondsSince1970(record.ftLastWriteTime);
    // Not every kind of disk keeps the creation.
    facts.CreationTime =
        IsSet(record.ftCreationTime) ? SecondsSince1970(record.ftCreationTime) : facts.ModificationTime;
    return facts;
}

// In every folder, as it was in the beginning: "CON" is the keyboard, which a reader would wait for.
bool IsNameOfDevice(const std::string& path) {
    std::array<char, MAX_PATH> full{};
    const DWORD length =
        GetFullPathNameA(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    return length < full.size() && std::string_view(full.data(), length).starts_with("\\\\.\\");
}

bool ChangeAttribute(const std::string& path, DWORD attribute, bool isSet) {
    const DWORD former = GetFileAttributesA(path.c_str());
    if (former == INVALID_FILE_ATTRIBUTES)
        return false;
    const DWORD changed = isSet ? former | attribute : former & ~attribute;
    return SetFileAttributesA(path.c_str(), changed != 0 ? changed : FILE_ATTRIBUTE_NORMAL) != FALSE;
}

} // namespace

FileFacts ExamineFile(const std::string& path) {
    const WindowsFile file(WindowsFile::OpenExisting(path, 0));
    BY_HANDLE_FILE_INFORMATION facts{};
    if (file.IsOpen() && GetFileInformationByHandle(file.Get(), &facts) != FALSE)
        return FactsFrom(facts);
    FileFacts result;
    // Most devices open and have no facts; a file of the system's own does not open and has some.
    WIN32_FILE_ATTRIBUTE_DATA listed{};
    if (file.IsOpen() || IsNameOfDevice(path))
        result.Kind = FileKind::File;
    else if (GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &listed) != FALSE &&
             (listed.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        result = FactsFrom(listed);
    return result;
}

bool CanReadFile(const std::string& path) {
    return WindowsFile(WindowsFile::OpenExisting(path, GENERIC_READ)).IsOpen();
}

bool IsEmptyFolder(const std::string& path) {
    return PathIsDirectoryEmptyA(path.c_str()) != FALSE;
}

bool SetFileHidden(const std::string& path, bool hidden) {
    return ChangeAttribute(path, FILE_ATTRIBUTE_HIDDEN, hidden);
}

bool SetFileReadOnly(const std::string& path, bool readOnly) {
    return ChangeAttribute(path, FILE_ATTRIBUTE_READONLY, readOnly);
}

bool RemoveFile(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return false;
    // Who may remove a file may also remove one that is not to be written; only the call insists.
    const bool isReadOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (isReadOnly && !SetFileReadOnly(path, false))
        return false;
    if (DeleteFileA(path.c_str()) != FALSE)
        return true;
    if (isReadOnly)
        SetFileReadOnly(path, true);
    return false;
}

bool MakeFolder(const std::string& path) {
    if (PathIsRelativeA(path.c_str()) != FALSE)
        return false;
    // Those of the user's own folders are the user's alone: rights come from the folder above.
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (EndsWithSeparator(std::string_view(path).substr(0, i + 1)))
            CreateDirectoryA(path.substr(0, i).c_str(), nullptr);
    }
    CreateDirectoryA(path.c_str(), nullptr);
    return ExamineFile(path).Kind == FileKind::Folder;
}

bool CreatePrivateFile(const std::string& path) {
    // The rights are those of the folder, and the folders that are meant for it are the user's.
    return WindowsFile(WindowsFile::OpenNew(path)).IsOpen();
}

} // namespace Nvr::Platform
