#include "Shared/Utils/tree/SettingsTree.h"
#include "tests/Shared/Utils/FilesTesting.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

using namespace Nvr;
using namespace FilesTesting;

class SettingsFileTest : public ::testing::Test {
protected:
    std::string Read(bool perUser) const {
        const SettingsTree settings("Vendor", "Product", "Section", perUser);
        return std::string(settings.GetTree()->ToText().View());
    }

    Scratch m_Scratch;
    Environment m_Store{"NOTAVERA_SETTINGS", m_Scratch.Path()};
};

const std::string kGroup = "[Software\\Vendor\\Product\\Section]\n";
constexpr const char* kEmptyTree = "\r\n";

TEST_F(SettingsFileTest, KeysBecomeNodesInTheStoresOrder) {
    const struct {
        std::string Store;
        const char *Tree, *Why;
    } rows[] = {
        {"", "\r\n", "nothing stored"},
        {kGroup, "\r\n", "a group with nothing in it"},
        {kGroup + "[Software\\Vendor\\Product\\Next]\na = 1\n", "\r\n", "the next group is not read"},
        {kGroup + "= own\r\n x \t=  y = z \r\n", " \"own\"\r\n{\r\n\tx \"y = z\"\r\n}\r\n",
         "the group's own value; blanks and line ends of other systems"},
        {kGroup + "a\\b = 1\na = 2\na\\c\n",
         "\r\n{\r\n\ta \"2\"\r\n\t{\r\n\t\tb \"1\"\r\n\t\tc\r\n\t}\r\n}\r\n", "keys below keys"},
        {kGroup + "a = 1\n[Other]\na = 2\n" + kGroup + "a = 3\n", "\r\n{\r\n\ta \"3\"\r\n}\r\n",
         "named twice: the later value in the earlier place"},
        {kGroup + "00000001Unnamed_Node = v\n", "\r\n{\r\n\t \"v\"\r\n}\r\n", "a node without a label"},
        {"a = 0\n[Broken\nb = 0\n[]\nc = 0\n[Software\\\\Vendor]\nd = 0\n" + kGroup +
             "# e = 0\n\nf\\\\g = 0\nh = 1",
         "\r\n{\r\n\th \"1\"\r\n}\r\n", "what cannot be a key belongs nowhere"},
    };
    for (const auto& row : rows) {
        m_Scratch.Write("machine.conf", row.Store);
        EXPECT_EQ(Read(false), row.Tree) << row.Why;
        EXPECT_EQ(Read(true), row.Tree) << "for the user: " << row.Why;
    }
}

TEST_F(SettingsFileTest, UsesTheUsersConfigurationFolder) {
    const Environment store("NOTAVERA_SETTINGS", std::nullopt);
    std::filesystem::create_directories(m_Scratch.Path("config/notavera"));
    m_Scratch.Write("config/notavera/settings.conf", kGroup + "a = 1\n");
    const Environment config("XDG_CONFIG_HOME", m_Scratch.Path("config"));
    EXPECT_EQ(Read(true), "\r\n{\r\n\ta \"1\"\r\n}\r\n");
}

TEST_F(SettingsFileTest, HostileStoreDoesNoHarm) {
    const std::string path = m_Scratch.Path("machine.conf");
    m_Scratch.Write("machine.conf", kGroup + "a = 1\n#" + std::string(1024 * 1024, 'x'));
    EXPECT_EQ(Read(false), kEmptyTree) << "too large";
    std::string deep(kGroup);
    for (int i = 0; i < 400'000; ++i)
        deep += "d\\";
    m_Scratch.Write("machine.conf", deep + "d = 1\nflat = 1\n");
    EXPECT_EQ(Read(false), "\r\n{\r\n\tflat \"1\"\r\n}\r\n") << "too deep";
    std::filesystem::remove(path);
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(Read(false), kEmptyTree) << "a pipe nobody writes to";
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    EXPECT_EQ(Read(false), kEmptyTree) << "a folder";
}

} // namespace
