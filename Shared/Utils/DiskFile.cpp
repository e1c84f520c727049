#include "Shared/Utils/DiskFile.h"

#include "Shared/Utils/DiskFolder.h"
#include "Shared/Utils/FileUrl.h"
#include "Shared/Utils/platform/FileServices.h"

namespace Nvr {

namespace {

String NameWithExtension(const String& name, const String& extension) {
    return extension.IsEmpty() ? name : name + "." + extension;
}

} // namespace

DiskFile::DiskFile(const DiskFolder& folder, const String& name, const String& extension)
    : DiskObject(folder, NameWithExtension(name, extension)) {}

DiskFile DiskFile::FromUrl(const String& url) {
    DiskFile file;
    file.SetUrl(url);
    return file;
}

bool DiskFile::Exists() const {
    return Platform::ExamineFile(NativePath()).Kind == Platform::FileKind::File;
}

String DiskFile::GetFileName(bool unescape) const {
    const std::string_view url = GetUrl().View();
    const std::string_view name = url.substr(url.rfind('/') + 1);
    return unescape ? String(UnescapeUrl(name)) : String(name);
}

String DiskFile::GetBaseName() const {
    const String name = GetFileName(true);
    const int dot = name.FindLastChar('.');
    return dot < 0 ? name : name.Mid(0, dot);
}

String DiskFile::GetExtension() const {
    const String name = GetFileName(true);
    const int dot = name.FindLastChar('.');
    return dot < 0 ? String() : name.Mid(dot + 1);
}

bool DiskFile::HasExtension(const String& extension) const {
    return GetExtension().EqualsIgnoreCase(extension);
}

std::int64_t DiskFile::GetSize() const {
    const Platform::FileFacts facts = Platform::ExamineFile(NativePath());
    if (facts.Kind != Platform::FileKind::File)
        return -1;
    return facts.IsRegular ? facts.Size : 0;
}

String DiskFile::GetCreationDate() const {
    const std::string path = NativePath();
    if (!Exists() || !Platform::CanReadFile(path))
        return {};
    return String(Platform::LongDateAndTime(Platform::ExamineFile(path).CreationTime));
}

String DiskFile::GetModificationDate() const {
    const std::string path = NativePath();
    if (!Exists() || !Platform::CanReadFile(path))
        return {};
    return String(Platform::LongDateAndTime(Platform::ExamineFile(path).ModificationTime));
}

bool DiskFile::ChangeExtension(const String& extension, bool renameOnDisk, bool keepOldExtension) {
    const String name = NameWithExtension(keepOldExtension ? GetFileName(true) : GetBaseName(), extension);
    const DiskFile renamed(GetParent(), name);
    bool moved = true;
    if (renameOnDisk && renamed != *this && Exists())
        moved = Platform::CopyFileContents(NativePath(), renamed.NativePath()) && Delete(false);
    *this = renamed;
    return moved;
}

bool DiskFile::Delete(bool allowUndo) const {
    if (!Exists())
        return false;
    return allowUndo ? Platform::MoveFileToRecyclePlace(NativePath()) : Platform::RemoveFile(NativePath());
}

bool DiskFile::CreateNew() const {
    return Platform::CreatePrivateFile(NativePath());
}

} // namespace Nvr
