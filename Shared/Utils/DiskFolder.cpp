#include "Shared/Utils/DiskFolder.h"

#include "Shared/Utils/FileUrl.h"
#include "Shared/Utils/platform/FileServices.h"

namespace Nvr {

DiskFolder DiskFolder::FromUrl(const String& url) {
    DiskFolder folder;
    folder.SetUrl(url);
    return folder;
}

bool DiskFolder::Exists() const {
    return Platform::ExamineFile(NativePath()).Kind == Platform::FileKind::Folder;
}

String DiskFolder::GetName() const {
    return String(UnescapeUrl(LastPart()));
}

bool DiskFolder::IsEmpty() const {
    return Platform::IsEmptyFolder(NativePath());
}

} // namespace Nvr
