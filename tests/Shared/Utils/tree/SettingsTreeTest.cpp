#include "Shared/Utils/tree/SettingsTree.h"

#include "Shared/Utils/DebugSwitches.h"
#include "tests/Shared/Utils/RecordingSink.h"
#include "tests/support/StoredSettings.h"

#include <gtest/gtest.h>

namespace {

using namespace Nvr;

constexpr const char* kGroup = "Software\\Vendor\\Product\\Section";

std::string Read(bool perUser) {
    const SettingsTree settings("Vendor", "Product", "Section", perUser);
    return std::string(settings.GetTree()->ToText().View());
}

TEST(Settings, UsersGroupGoesBeforeTheMachines) {
    TestSupport::StoredSettings store;
    EXPECT_EQ(Read(true), "\r\n") << "nothing stored";
    store.Store(kGroup, {{"from", "machine"}, {"more", "1"}, {"more\\deep", "2"}}, false);
    const char* const machine =
        "\r\n{\r\n\tfrom \"machine\"\r\n\tmore \"1\"\r\n\t{\r\n\t\tdeep \"2\"\r\n\t}\r\n}\r\n";
    EXPECT_EQ(Read(true), machine);
    store.Store(kGroup, {{"from", "user"}, {"zero\\00000001Unnamed_Node", ""}});
    EXPECT_EQ(Read(true), "\r\n{\r\n\tfrom \"user\"\r\n\tzero\r\n\t{\r\n\t\t\r\n\t}\r\n}\r\n");
    EXPECT_EQ(Read(false), machine);
}

TEST(Settings, DebugSwitchesGiveTheirDefaultsWithoutAReport) {
    TestSupport::StoredSettings store;
    const RecordingSink sink;
    EXPECT_TRUE(GetDebugSwitch("Group", "Name", true));
    EXPECT_FALSE(GetDebugSwitch("Group", "Name", false));
    EXPECT_EQ(GetDebugNumber("Group", "Name", -7), -7);
    EXPECT_TRUE(sink.Messages.empty());
    store.Store("Software\\Notavera Software\\NotaveraDiagnostics\\Group",
                {{"On", "TRUE"}, {"Off", "0"}, {"Number", "42"}});
    EXPECT_TRUE(GetDebugSwitch("Group", "On", false));
    EXPECT_FALSE(GetDebugSwitch("Group", "Off", true));
    EXPECT_EQ(GetDebugNumber("Group", "Number", 0), 42);
}

} // namespace
