#pragma once

#include <cstdint>
#include <string>

/// Everything that the system says about files and folders, and does with them. One source a platform. Paths
/// are native and absolute, in the system's own bytes. Nothing here reports, or throws anything but an
/// allocation failure: what cannot be done gives false or an empty answer, and leaves files as they were.
namespace Nvr::Platform {

enum class FileKind {
    Missing,
    /// Anything that is not a folder.
    File,
    Folder
};

/// What is known of a path, links followed.
struct FileFacts {
    FileKind Kind = FileKind::Missing;
    /// A file of its own with contents; not a device, a pipe or the like.
    bool IsRegular = false;
    bool IsHidden = false;
    bool IsReadOnly = false;
    /// In bytes.
    std::int64_t Size = 0;
    /// Seconds since 1970 began, UTC. The creation is the earliest moment that the system remembers.
    std::int64_t ModificationTime = 0;
    std::int64_t CreationTime = 0;
};

FileFacts ExamineFile(const std::string& path);
/// True when the file's contents can be read by this process.
bool CanReadFile(const std::string& path);
/// True when this is a folder that holds nothing.
bool IsEmptyFolder(const std::string& path);

/// False also where the platform keeps the attribute in the name.
bool SetFileHidden(const std::string& path, bool hidden);
bool SetFileReadOnly(const std::string& path, bool readOnly);

/// Removes a file, or the link at `path`. Never a folder.
bool RemoveFile(const std::string& path);
/// Moves a file to the place from which the user can get it back; false where it has none.
bool MoveFileToRecyclePlace(const std::string& path);
/// Copies contents and access rights over a file that may exist. After a failure the target is as it was, as
/// far as PrepareReplacement can do that. False for a copy onto itself.
bool CopyFileContents(const std::string& from, const std::string& to);
/// Makes a folder and those above it as far as they are missing, for the user alone. True when it is there
/// afterwards.
bool MakeFolder(const std::string& path);

/// Makes an empty file that only the user may read and write. False when anything, even a broken link, has
/// that name already.
bool CreatePrivateFile(const std::string& path);
/// A number that nobody can predict.
std::uint64_t UnguessableNumber();

/// Where a new version of a file is to be written, and how it takes the file's place.
struct Replacement {
    /// The file that is replaced: `path` with links at its end followed. Empty when it can be neither
    /// replaced nor written in place without risk: the links lead nowhere, the disk or the table of open
    /// files is full.
    std::string Target;
    /// A new empty file in the same folder, with the access rights that the target has, or that a new file
    /// gets. Empty when the target can only be written in place: it is no regular file, has more names than
    /// one or another owner whom a new file could not keep, or its folder grants no right to make files.
    std::string Beside;
};

Replacement PrepareReplacement(const std::string& path);
/// Puts `Beside` in the place of `Target` in one step. After a failure both are as they were.
bool FinishReplacement(const Replacement& replacement);
/// Waits until the contents of a file are on the disk itself. False when the disk has failed in that; true
/// also where the system has no such promise to give.
bool FlushToDisk(const std::string& path);

/// The folder for temporary files. A setting of the user's that names no folder in which files can be made is
/// passed over.
std::string TemporaryFolder();
/// The folder of the process's executable.
std::string ExecutableFolder();
/// The user's folder for settings of programs; empty when there is none.
std::string UserConfigFolderPath();
/// The folders for data that programs keep, of the user and for all users; empty when there is none.
std::string UserDataFolderPath();
std::string CommonDataFolderPath();

/// Date and time of a moment as the user's settings write them in full: the date, a blank, the time. Empty
/// when it is beyond the calendar.
std::string LongDateAndTime(std::int64_t time);

} // namespace Nvr::Platform
