#include "Shared/Utils/platform/Resources.h"

#include "Shared/Utils/platform/ResourceTable.h"

#include <algorithm>

namespace Nvr::Platform {

namespace {

// Tables register themselves while statics are being made, in no known order: this one is there before all.
constinit const ResourceTable* s_LastRegistered = nullptr;

} // namespace

ResourceTable::ResourceTable(std::span<const StringResource> strings,
                             std::span<const DataResource> data) noexcept
    : m_Strings(strings), m_Data(data), m_Next(s_LastRegistered) {
    s_LastRegistered = this;
}

ResourceTable::~ResourceTable() {
    if (s_LastRegistered == this) {
        s_LastRegistered = m_Next;
        return;
    }
    for (const ResourceTable* table = s_LastRegistered; table != nullptr; table = table->m_Next) {
        if (table->m_Next == this) {
            table->m_Next = m_Next;
            return;
        }
    }
}

const ResourceTable* ResourceTable::First() noexcept {
    return s_LastRegistered;
}

std::string_view FindStringResource(ModuleHandle module, int id) {
    if (module == nullptr)
        return {};
    for (const ResourceTable* table = ResourceTable::First(); table != nullptr; table = table->Next()) {
        const auto strings = table->Strings();
        const auto found = std::find_if(strings.begin(), strings.end(),
                                        [id](const StringResource& entry) { return entry.Id == id; });
        if (found != strings.end() && table->Module() == module)
            return found->Text.data() != nullptr ? found->Text : std::string_view("");
    }
    return {};
}

std::span<const std::byte> FindDataResource(ModuleHandle module, std::string_view type, std::string_view name,
                                            int id) {
    if (module == nullptr)
        return {};
    const auto matches = [=](const DataResource& entry) {
        return entry.Type == type && entry.Name == name && (!name.empty() || entry.Id == id);
    };
    for (const ResourceTable* table = ResourceTable::First(); table != nullptr; table = table->Next()) {
        const auto data = table->Data();
        const auto found = std::find_if(data.begin(), data.end(), matches);
        if (found != data.end() && table->Module() == module)
            return found->Bytes;
    }
    return {};
}

} // namespace Nvr::Platform
