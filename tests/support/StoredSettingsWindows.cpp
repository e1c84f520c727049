#include "tests/support/StoredSettings.h"

#include <stdexcept>
#include <windows.h>

namespace TestSupport {

namespace {

void Check(LSTATUS status, const char* what) {
    if (status != ERROR_SUCCESS)
        throw std::runtime_error(std::string(what) + ": " + std::to_string(status));
}

HKEY CreateKey(HKEY above, const std::string& path) {
    HKEY key = nullptr;
    Check(RegCreateKeyExA(above, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
          path.c_str());
    return key;
}

} // namespace

// The two branches of the store stand for keys of the test's own.
struct StoredSettings::Place {
    std::string Path = "Software\\Fretline tests " + std::to_string(GetCurrentProcessId());
    HKEY User = CreateKey(HKEY_CURRENT_USER, Path + "\\user");
    HKEY Machine = CreateKey(HKEY_CURRENT_USER, Path + "\\machine");
};

StoredSettings::StoredSettings() : m_Place(std::make_unique<Place>()) {
    Check(RegOverridePredefKey(HKEY_LOCAL_MACHINE, m_Place->Machine), "machine");
    Check(RegOverridePredefKey(HKEY_CURRENT_USER, m_Place->User), "user");
}

StoredSettings::~StoredSettings() {
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegCloseKey(m_Place->User);
    RegCloseKey(m_Place->Machine);
    RegDeleteTreeA(HKEY_CURRENT_USER, m_Place->Path.c_str());
}

void StoredSettings::Store(const std::string& group, const Values& values, bool forUser) {
    const HKEY key = CreateKey(forUser ? m_Place->User : m_Place->Machine, group);
    for (const auto& [name, value] : values) {
        const HKEY named = CreateKey(key, name);
        const auto* const bytes = reinterpret_cast<const BYTE*>(value.c_str());
        Check(RegSetValueExA(named, nullptr, 0, REG_SZ, bytes, static_cast<DWORD>(value.size() + 1)),
              name.c_str());
        RegCloseKey(named);
    }
    RegCloseKey(key);
}

} // namespace TestSupport
