#include "Shared/Utils/tree/SettingsTree.h"
#include "tests/support/StoredSettings.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <windows.h>

namespace {

constexpr const char* kGroup = "Software\\Vendor\\Product\\Section";

void StoreBytes(const char* name, DWORD type, const std::string& bytes) {
    std::string path(kGroup);
    path.append("\\").append(name);
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyA(HKEY_LOCAL_MACHINE, path.c_str(), &key), ERROR_SUCCESS);
    EXPECT_EQ(RegSetValueExA(key, nullptr, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                             static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
    RegCloseKey(key);
}

std::string Read() {
    const Nvr::SettingsTree settings("Vendor", "Product", "Section", false);
    return std::string(settings.GetTree()->ToText().View());
}

TEST(Settings, HostileStoreDoesNoHarm) {
    TestSupport::StoredSettings store;
    StoreBytes("a", REG_SZ, "no zero at the end");
    StoreBytes("b", REG_DWORD, "1234");
    StoreBytes("c", REG_EXPAND_SZ, "%PATH%");
    StoreBytes("d", REG_SZ, std::string("two\0texts\0", 10));
    EXPECT_EQ(Read(), "\r\n{\r\n\ta \"no zero at the end\"\r\n\tb\r\n\tc\r\n\td \"two\"\r\n}\r\n");
    StoreBytes("e", REG_SZ, std::string(2 * 1024 * 1024, 'x'));
    EXPECT_EQ(Read(), "\r\n{\r\n\ta \"no zero at the end\"\r\n\tb\r\n\tc\r\n\td \"two\"\r\n\te\r\n}\r\n")
        << "too long";
}

TEST(Settings, DeepKeysAreLeftOut) {
    TestSupport::StoredSettings store;
    std::string deep("d");
    for (int i = 1; i < 100; ++i)
        deep.append("\\d");
    store.Store(kGroup, {{deep, "1"}, {"flat", "1"}}, false);
    const std::string text = Read();
    EXPECT_EQ(std::count(text.begin(), text.end(), 'd'), 64);
    EXPECT_NE(text.find("\tflat \"1\""), std::string::npos);
}

} // namespace
