#include "Shared/Utils/Dynalink.h"

#include "Shared/Utils/DiskFile.h"

#include <string>

namespace Nvr {

Dynalink::Dynalink() : m_Module(Platform::ProcessModule()), m_Owned(false) {}

Dynalink::Dynalink(const String& path)
    : m_Module(Platform::LoadModule(std::string(path.View()))), m_Owned(m_Module != nullptr) {}

Dynalink::Dynalink(const DiskFile& file) : Dynalink(file.GetPath()) {}

Dynalink::~Dynalink() {
    if (m_Owned)
        Platform::UnloadModule(m_Module);
}

void* Dynalink::GetFunction(const String& name) const {
    return Platform::FindFunction(m_Module, name.CStr());
}

} // namespace Nvr
