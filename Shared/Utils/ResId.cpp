#include "Shared/Utils/ResId.h"

#include "Shared/Utils/Reporting.h"
#include "Shared/Utils/platform/Resources.h"

namespace Nvr {

namespace {

// A buffer of 1000 bytes holds the text and its zero.
constexpr std::size_t kLongestStringResource = 999;

Platform::ModuleHandle s_ResourceModule = nullptr;

} // namespace

ResId::ResId() : ResId(0) {}

ResId::ResId(const String& name) : ResId(s_ResourceModule, name) {}

ResId::ResId(int id) : ResId(s_ResourceModule, id) {}

ResId::ResId(Platform::ModuleHandle module, const String& name) : m_Name(name), m_Id(0), m_Module(module) {}

ResId::ResId(Platform::ModuleHandle module, int id) : m_Id(id), m_Module(module) {}

String ResId::GetString() const {
    std::string_view text = Platform::FindStringResource(m_Module, m_Id);
    if (text.data() == nullptr)
        text = Platform::FindStringResource(Platform::ProcessModule(), m_Id);
    if (text.data() == nullptr) {
        ReportError("ResId::GetString failed to load string with ID " + String::FromInt(m_Id));
        return {};
    }
    return String(text.substr(0, kLongestStringResource)).ReplaceAll("%app", String::ApplicationName());
}

Platform::ModuleHandle ResId::ResourceModule() {
    return s_ResourceModule;
}

void ResId::SetResourceModule(Platform::ModuleHandle module) {
    s_ResourceModule = module;
}

} // namespace Nvr
