#include "Shared/Utils/FileName.h"

#include "Shared/Utils/platform/FileServices.h"
#include "Shared/Utils/platform/NativePaths.h"

namespace Nvr {

namespace {

std::string NativePath(const String& path) {
    return std::string(path.View());
}

Platform::FileFacts Examine(const String& path) {
    return Platform::ExamineFile(NativePath(path));
}

} // namespace

FileName::FileName(const String& path) : m_Path(path) {
    const Platform::PathParts parts = Platform::SplitPath(path.View());
    if (!parts.Drive.empty())
        m_Path = String(Platform::JoinPath(parts));
}

bool FileName::IsFile() const {
    return Examine(m_Path).Kind == Platform::FileKind::File;
}

bool FileName::IsFolder() const {
    return Examine(m_Path).Kind == Platform::FileKind::Folder;
}

std::int64_t FileName::GetSize() const {
    return Examine(m_Path).Size;
}

std::int64_t FileName::GetModificationTime() const {
    const Platform::FileFacts facts = Examine(m_Path);
    return facts.Kind == Platform::FileKind::Missing ? kNoModificationTime : facts.ModificationTime;
}

bool FileName::CopyTo(const FileName& other) const {
    return Platform::CopyFileContents(NativePath(m_Path), NativePath(other.m_Path));
}

bool FileName::HasExtension(const String& extension) const {
    const std::string own = Platform::SplitPath(m_Path.View()).Extension;
    return String(own.empty() ? own : own.substr(1)).EqualsIgnoreCase(extension);
}

} // namespace Nvr
