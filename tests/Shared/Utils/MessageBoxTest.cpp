#include "Shared/Utils/platform/MessageBox.h"
#include "Shared/Utils/Reporting.h"
#include "Shared/Utils/platform/StackTrace.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// A desktop on which only programs of the test's own are found.
class MessageBoxTest : public testing::Test {
protected:
    MessageBoxTest() : m_Folder(fs::temp_directory_path() / ("message-box-" + std::to_string(getpid()))) {
        fs::create_directories(m_Folder);
        setenv("PATH", m_Folder.c_str(), 1);
        setenv("DISPLAY", ":77", 1);
    }
    ~MessageBoxTest() override {
        setenv("PATH", m_FormerPath.c_str(), 1);
        if (m_FormerDisplay.empty())
            unsetenv("DISPLAY");
        else
            setenv("DISPLAY", m_FormerDisplay.c_str(), 1);
        std::error_code ignored;
        fs::remove_all(m_Folder, ignored);
    }
    MessageBoxTest(const MessageBoxTest&) = delete;
    MessageBoxTest& operator=(const MessageBoxTest&) = delete;

    // A program that writes its arguments, one a line, and ends with the exit code.
    void AddProgram(const std::string& name, int exitCode) {
        std::ofstream(m_Folder / name) << "#!/bin/sh\nprintf '%s\\n' \"$@\" >\""
                                       << (m_Folder / "shown").string() << "\"\nexit " << exitCode << "\n";
        fs::permissions(m_Folder / name, fs::perms::owner_all);
    }
    std::string Shown() const {
        std::ostringstream text;
        text << std::ifstream(m_Folder / "shown").rdbuf();
        return text.str();
    }

private:
    static std::string Variable(const char* name) {
        const char* const value = std::getenv(name);
        return value != nullptr ? value : "";
    }
    std::string m_FormerPath = Variable("PATH");
    std::string m_FormerDisplay = Variable("DISPLAY");
    fs::path m_Folder;
};

} // namespace

TEST_F(MessageBoxTest, AsksThroughTheDesktop) {
    AddProgram("zenity", 1);
    EXPECT_TRUE(Nvr::Platform::ShowInformationBox("Message", "one <b>two</b>\nthree"))
        << "closing is an answer";
    EXPECT_EQ(Shown(), "--info\n--no-markup\n--title=Message\n--text=one <b>two</b>\nthree\n");
}

TEST_F(MessageBoxTest, TakesTheNextProgramWhenOneIsMissing) {
    AddProgram("xmessage", 0);
    EXPECT_TRUE(Nvr::Platform::ShowInformationBox("Message", "text"));
    EXPECT_EQ(Shown(), "-center\n-title\nMessage\ntext\n");
}

TEST_F(MessageBoxTest, WritesToTheErrorStreamWithoutADesktop) {
    testing::internal::CaptureStderr();
    EXPECT_FALSE(Nvr::Platform::ShowInformationBox("Message", "no program"));
    unsetenv("DISPLAY");
    const char* const wayland = std::getenv("WAYLAND_DISPLAY");
    if (wayland == nullptr) {
        AddProgram("zenity", 0);
        EXPECT_FALSE(Nvr::Platform::ShowInformationBox("Message", "no display"));
    }
    const std::string written = testing::internal::GetCapturedStderr();
    EXPECT_EQ(written.substr(0, 20), "Message: no program\n");
    EXPECT_EQ(Shown(), "");
}

TEST_F(MessageBoxTest, ShowsMessagesUnlessSwitchedOff) {
    AddProgram("zenity", 0);
    EXPECT_TRUE(Nvr::SetMessagesShown(false));
    Nvr::ShowMessage("silent");
    EXPECT_EQ(Shown(), "");
    EXPECT_FALSE(Nvr::SetMessagesShown(true));
    Nvr::ShowMessage("caf\xE9");
    EXPECT_EQ(Shown(), "--info\n--no-markup\n--title=Message\n--text=caf\xC3\xA9\n");
    Nvr::ShowException(std::runtime_error("went wrong"));
    EXPECT_EQ(Shown(), "--info\n--no-markup\n--title=Message\n--text=went wrong\n");
}

TEST(StackTrace, StartsAtItsCaller) {
    const auto lines = Nvr::Platform::CaptureStackTrace();
    ASSERT_GT(lines.size(), 1U);
    for (const std::string& line : lines)
        EXPECT_NE(line.find("0x"), std::string::npos) << line;
}
