#include "Shared/Utils/DebugSwitches.h"

#include "Shared/Utils/tree/SettingsTree.h"

namespace Nvr {

namespace {

constexpr const char* kVendor = "Notavera Software";
constexpr const char* kProduct = "NotaveraDiagnostics";

template <class Value>
Value ReadFromGroup(const String& group, const String& name, Value defaultValue) {
    const SettingsTree settings(kVendor, kProduct, group, true);
    return settings.GetTree()->GetChildValue(name, defaultValue);
}

} // namespace

bool GetDebugSwitch(const String& group, const String& name, bool defaultValue) {
    return ReadFromGroup(group, name, defaultValue);
}

int GetDebugNumber(const String& group, const String& name, int defaultValue) {
    return ReadFromGroup(group, name, defaultValue);
}

} // namespace Nvr
