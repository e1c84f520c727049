#include "Shared/Utils/platform/FileServices.h"

#include "Shared/Utils/platform/WindowsFile.h"

#include <array>
#include <utility>
#include <vector>

namespace Nvr::Platform {

namespace {

constexpr int kNameTries = 100;
// What a file keeps when it is written anew.
constexpr DWORD kLastingAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                                     FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

// Without the mark by which the service says that it is the plain form.
std::string UsualForm(const std::string& path) {
    constexpr std::string_view kPlain = "\\\\?\\";
    constexpr std::string_view kPlainShare = "\\\\?\\UNC\\";
    if (path.starts_with(kPlainShare))
        return "\\\\" + path.substr(kPlainShare.size());
    return path.starts_with(kPlain) ? path.substr(kPlain.size()) : path;
}

// Writing to a link writes the file that it names. The path itself when it is none or leads nowhere.
std::string FollowLinks(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return path;
    const WindowsFile file(WindowsFile::OpenExisting(path, 0));
    std::array<char, MAX_PATH + 8> target{};
    const DWORD length = file.IsOpen() ? GetFinalPathNameByHandleA(file.Get(), target.data(),
                                                                   static_cast<DWORD>(target.size()), 0)
                                       : 0;
    if (length == 0 || length >= target.size())
        return path;
    // The code page may lack a character of it.
    const std::string found = UsualForm(std::string(target.data(), length));
    return ExamineFile(found).Kind == FileKind::Missing ? path : found;
}

bool IsLink(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

// Empty, with the system's last error set, when there can be none.
std::string CreateBeside(const std::string& target) {
    for (int i = 0; i < kNameTries; ++i) {
        std::string path =
            PathInFolder(FolderOfPath(target), ".nv" + std::to_string(UnguessableNumber()) + ".tmp");
        if (WindowsFile(WindowsFile::OpenNew(path)).IsOpen())
            return path;
        if (GetLastError() != ERROR_FILE_EXISTS)
            break;
    }
    return {};
}

// Some of what the system keeps about the rights to a file; empty when it does not say.
class Security {
public:
    Security(const std::string& path, SECURITY_INFORMATION wanted) : m_Wanted(wanted) {
        DWORD size = 0;
        GetFileSecurityA(path.c_str(), wanted, nullptr, 0, &size);
        m_Bytes.resize(size);
        if (GetFileSecurityA(path.c_str(), wanted, m_Bytes.data(), size, &size) == FALSE)
            m_Bytes.clear();
    }

    bool IsKnown() const { return !m_Bytes.empty(); }
    friend bool operator==(const Security& left, const Security& right) {
        return left.m_Bytes == right.m_Bytes;
    }
    bool ApplyTo(const std::string& path) {
        return SetFileSecurityA(path.c_str(), m_Wanted, m_Bytes.data()) != FALSE;
    }

private:
    SECURITY_INFORMATION m_Wanted;
    std::vector<std::uint8_t> m_Bytes;
};

// False when the new file could not get the owner and rights of the one that it is to replace.
bool TakeOver(const std::string& path, const std::string& former) {
    constexpr SECURITY_INFORMATION kOwner = OWNER_SECURITY_INFORMATION;
    constexpr SECURITY_INFORMATION kRights = DACL_SECURITY_INFORMATION;
    for (const SECURITY_INFORMATION part : {kOwner, kRights}) {
        Security security(former, part);
        if (!security.IsKnown() || (security != Security(path, part) && !security.ApplyTo(path)))
            return false;
    }
    return true;
}

// Writing in place begins with losing what is there: not where the next write may fail like this one.
void MakeBesideOrGiveUp(Replacement& replacement) {
    replacement.Beside = CreateBeside(replacement.Target);
    if (replacement.Beside.empty() && GetLastError() != ERROR_ACCESS_DENIED)
        replacement.Target.clear();
}

bool CanBeReplaced(const std::string& path) {
    const WindowsFile file(WindowsFile::OpenExisting(path, GENERIC_WRITE));
    BY_HANDLE_FILE_INFORMATION facts{};
    return file.IsOpen() && GetFileInformationByHandle(file.Get(), &facts) != FALSE &&
           (facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0 && facts.nNumberOfLinks == 1;
}

bool IsSameFile(const std::string& first, const std::string& second) {
    const WindowsFile files[] = {WindowsFile(WindowsFile::OpenExisting(first, 0)),
                                 WindowsFile(WindowsFile::OpenExisting(second, 0))};
    BY_HANDLE_FILE_INFORMATION facts[2] = {};
    for (int i = 0; i < 2; ++i) {
        if (!files[i].IsOpen() || GetFileInformationByHandle(files[i].Get(), &facts[i]) == FALSE)
            return false;
    }
    return facts[0].dwVolumeSerialNumber == facts[1].dwVolumeSerialNumber &&
           facts[0].nFileIndexHigh == facts[1].nFileIndexHigh &&
           facts[0].nFileIndexLow == facts[1].nFileIndexLow;
}

bool CopyBytes(const std::string& from, const std::string& to) {
    return CopyFileA(from.c_str(), to.c_str(), FALSE) != FALSE;
}

bool MoveOver(const Replacement& replacement) {
    return MoveFileExA(replacement.Beside.c_str(), replacement.Target.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
}

} // namespace

Replacement PrepareReplacement(const std::string& path) {
    Replacement result{FollowLinks(path), {}};
    if (result.Target.empty())
        return result;
    const FileFacts former = ExamineFile(result.Target);
    if (former.IsReadOnly)
        return {};
    const bool isNew = former.Kind == FileKind::Missing;
    // What a link that leads nowhere names is made by writing through it.
    if (isNew ? IsLink(result.Target) : !CanBeReplaced(result.Target))
        return result;
    MakeBesideOrGiveUp(result);
    if (!isNew && !result.Beside.empty() && !TakeOver(result.Beside, result.Target)) {
        RemoveFile(result.Beside);
        result.Beside.clear();
    }
    return result;
}

bool FinishReplacement(const Replacement& replacement) {
    // Only now: a hidden file could not have been opened for writing anew.
    const DWORD former = GetFileAttributesA(replacement.Target.c_str());
    if (former != INVALID_FILE_ATTRIBUTES && (former & kLastingAttributes) != 0)
        SetFileAttributesA(replacement.Beside.c_str(), former & kLastingAttributes);
    return MoveOver(replacement);
}

bool CopyFileContents(const std::string& from, const std::string& to) {
    if (!ExamineFile(from).IsRegular || IsSameFile(from, to))
        return false;
    const Replacement replacement = PrepareReplacement(to);
    if (replacement.Beside.empty())
        return ExamineFile(to).Kind == FileKind::File && CopyBytes(from, replacement.Target);
    // The copy comes with the attributes of what it is a copy of.
    if (CopyBytes(from, replacement.Beside) && MoveOver(replacement))
        return true;
    RemoveFile(replacement.Beside);
    return false;
}

} // namespace Nvr::Platform
