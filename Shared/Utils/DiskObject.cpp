#include "Shared/Utils/DiskObject.h"

#include "Shared/Utils/DiskFolder.h"
#include "Shared/Utils/FileName.h"
#include "Shared/Utils/FileUrl.h"
#include "Shared/Utils/platform/FileServices.h"
#include "Shared/Utils/platform/NativePaths.h"

#include <algorithm>

namespace Nvr {

namespace {

String UrlIfShortEnough(const std::string& url) {
    return url.size() <= DiskObject::kLongestUrl ? String(url) : String();
}

// Empty when there is no folder, no such name, or the url would be too long.
String UrlInFolder(const String& folderUrl, std::string_view escapedName) {
    if (folderUrl.IsEmpty() || escapedName.empty() || escapedName == "." || escapedName == "..")
        return {};
    std::string url(folderUrl.View());
    if (url.back() != '/')
        url += '/';
    return UrlIfShortEnough(url.append(escapedName));
}

std::string WithoutSeparators(std::string_view name) {
    std::string result(name);
    std::replace_if(
        result.begin(), result.end(), [](char c) { return c == '/' || c == '\\'; }, ' ');
    return result;
}

std::string_view WithoutLastSlash(std::string_view url) {
    return url.ends_with('/') ? url.substr(0, url.size() - 1) : url;
}

} // namespace

DiskObject::DiskObject(const String& path) : m_Url(UrlIfShortEnough(Platform::UrlOfPath(path.View()))) {}

DiskObject::DiskObject(const DiskFolder& folder, const String& name)
    : m_Url(UrlInFolder(folder.GetUrl(), EscapeUrlPath(WithoutSeparators(name.View())))) {}

std::string DiskObject::NativePath() const {
    return Platform::PathOfUrl(m_Url.View());
}

String DiskObject::GetPath() const {
    return String(NativePath());
}

bool DiskObject::IsHidden() const {
    return Platform::ExamineFile(NativePath()).IsHidden;
}

bool DiskObject::IsReadOnly() const {
    return Platform::ExamineFile(NativePath()).IsReadOnly;
}

bool DiskObject::SetHidden(bool hidden) const {
    return Exists() && (IsHidden() == hidden || Platform::SetFileHidden(NativePath(), hidden));
}

bool DiskObject::SetReadOnly(bool readOnly) const {
    return Exists() && (IsReadOnly() == readOnly || Platform::SetFileReadOnly(NativePath(), readOnly));
}

std::string_view DiskObject::LastPart() const {
    const std::string_view url = WithoutLastSlash(m_Url.View());
    // A url without a slash is its own last part.
    return url.substr(url.rfind('/') + 1);
}

DiskFolder DiskObject::GetParent() const {
    const std::string path = NativePath();
    const std::string_view url = WithoutLastSlash(m_Url.View());
    if (path.empty() || Platform::IsTopmostFolder(path))
        return {};
    const std::string_view parent = url.substr(0, url.rfind('/') + 1);
    // The topmost folder is the one that keeps its slash.
    const bool isTopmost = Platform::IsTopmostFolder(Platform::PathOfUrl(parent));
    return DiskFolder::FromUrl(String(isTopmost ? parent : WithoutLastSlash(parent)));
}

bool DiskObject::ToFileName(FileName& fileName) const {
    if (m_Url.IsEmpty())
        return false;
    fileName = FileName(GetPath());
    return true;
}

} // namespace Nvr
