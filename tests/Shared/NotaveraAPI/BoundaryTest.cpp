#include "Shared/NotaveraAPI/NotaveraPlugin.h"

#include <gtest/gtest.h>

#include <cstring>

extern "C" const char* FirstTypeCodeSeenFromC(int (*init)(const HostInitRecord*, PluginInfoRecord*),
                                              const char* configFolder);

namespace {

constexpr FileTypeEntry kRow = {"Description", "ext", "CODE"};
std::string g_configFolder;

int Init(const HostInitRecord* host, PluginInfoRecord* info) {
    g_configFolder = host->ConfigFolder;
    info->FileTypeCount = 1;
    info->FileTypes = &kRow;
    return 1;
}

TEST(Boundary, LooksTheSameFromC) {
    EXPECT_STREQ(FirstTypeCodeSeenFromC(Init, "/folder"), "CODE");
    EXPECT_EQ(g_configFolder, "/folder");
}

/// The words at the offsets at which a plug-in or host of another make puts and finds them.
TEST(Boundary, HasTheLayoutOfTheTables) {
    constexpr bool kIs32Bit = sizeof(void*) == 4;
    char parent = 0;
    char module = 0;
    char context = 0;
    HostInitRecord host{};
    host.ParentWindow = &parent;
    host.ResourceModule = &module;
    host.ProgressContext = &context;
    host.ConfigFolder = "/folder";
    const auto wordAt = [&](std::size_t offset) {
        void* word = nullptr;
        std::memcpy(&word, reinterpret_cast<const char*>(&host) + offset, sizeof word);
        return word;
    };
    EXPECT_EQ(wordAt(0), &parent);
    EXPECT_EQ(wordAt(kIs32Bit ? 12 : 16), &module);
    EXPECT_EQ(wordAt(kIs32Bit ? 16 : 24), &context);
    EXPECT_STREQ(static_cast<const char*>(wordAt(kIs32Bit ? 24 : 40)), "/folder");
}

} // namespace
