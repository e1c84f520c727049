// The options dialog as a person meets it: the reference host runs on a pseudo-terminal, keys are typed, the
// screen and the options file are looked at.

#include "tests/support/ScratchFolder.h"
#include "tests/support/TerminalPerson.h"

#include <gtest/gtest.h>

#include <functional>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using TestSupport::TerminalPerson;

constexpr int kCells = 80;
constexpr int kRows = 24;
constexpr int kDone = 0;
constexpr int kSomeFailed = 1;
constexpr int kCancelled = 130;

class Dialog : public testing::Test, protected TestSupport::ScratchFolder {
protected:
    Dialog() {
        const std::string line = "|------0------|\n";
        for (const char* name : {"a.tab", "b.tab"})
            Write(name, line + line + line + line + line + line);
        fs::create_directory(Path() / "config");
    }

    void Store(const std::string& text) const { Write("config/FretlineOptions.txt", text); }
    std::string Stored() const { return Read("config/FretlineOptions.txt"); }

    // The host with these files in the folder, on a terminal.
    std::function<int()> Host(const std::vector<const char*>& files) const {
        return [this, files] {
            if (chdir(Path().c_str()) != 0)
                return kSomeFailed;
            std::vector<const char*> arguments{"fretline", "--config", "config"};
            arguments.insert(arguments.end(), files.begin(), files.end());
            arguments.push_back(nullptr);
            execv(FRETLINE_HOST, const_cast<char* const*>(arguments.data()));
            return kSomeFailed;
        };
    }
};

std::string Level(int level) {
    return "\r\n{\r\n\tRhythmLevel \"" + std::to_string(level) + "\"\r\n}\r\n";
}

TEST_F(Dialog, ShowsTheStoredLevelAndStoresTheOneChosen) {
    const std::string firstUse;
    const std::string other = "\r\n\tOther\r\n\t{\r\n\t\tA \"b\"\r\n\t}\r\n}\r\n";
    const std::string colour = "\r\n{\r\n\tColour \"red\"\r\n\tRhythmLevel ";
    const struct {
        std::string Before;
        const char *Selected, *Keys;
        int Status;
        std::string After;
        const char* Why;
    } rows[] = {
        {firstUse, "(*) Only import rhythms when they are indicated", "\r", kDone, Level(1),
         "the middle one"},
        {Level(1), "(*) Only import rhythms", "a\r", kDone, Level(2), "another one"},
        {Level(2), "(*) Always import rhythms", "\r", kDone, Level(2), "the one chosen before"},
        {Level(0), "(*) Never import rhythms", "a\x1b", kCancelled, Level(0), "cancelled"},
        {Level(7), nullptr, "\r", kDone, Level(0), "an odd level selects nothing, and OK makes it Never"},
        {colour + "\"1\"" + other, "(*) Only", "n\r", kDone, colour + "\"0\"" + other, "other entries stay"},
        {"}{ @ nothing that can be read", "(*) Only", "\r", kDone, Level(1), "a damaged file harms nothing"},
    };
    for (const auto& row : rows) {
        fs::remove(Path() / "config/FretlineOptions.txt");
        fs::remove(Path() / "a.nvf");
        if (row.Before != firstUse)
            Store(row.Before);
        TerminalPerson person(kCells, kRows, Host({"a.tab"}));
        ASSERT_TRUE(person.WaitFor("<* OK *>")) << row.Why;
        EXPECT_GE(person.RowOf("Open ASCII Tab"), 0) << row.Why;
        EXPECT_GE(person.RowOf("[ ] Don't show this again"), 0) << row.Why;
        EXPECT_EQ(person.RowOf(row.Selected != nullptr ? row.Selected : "(*)") >= 0, row.Selected != nullptr)
            << row.Why;
        EXPECT_EQ(Stored(), row.Before == firstUse || row.Before[0] == '}' ? Level(1) : row.Before)
            << row.Why << ", while the dialog is still open";
        person.Type(row.Keys);
        EXPECT_EQ(person.WaitForEnd(), row.Status) << row.Why;
        EXPECT_EQ(Stored(), row.After) << row.Why;
        EXPECT_EQ(fs::exists(Path() / "a.nvf"), row.Status == kDone) << row.Why;
    }
}

TEST_F(Dialog, OneAnswerHoldsForAllFilesOfARun) {
    TerminalPerson person(kCells, kRows, Host({"a.tab", "b.tab"}));
    ASSERT_TRUE(person.WaitFor("<* OK *>"));
    EXPECT_NE(std::string::npos, person.Transcript().find("Rhythms of a.tab and 1 more file:"));
    person.Type("a\r");
    EXPECT_EQ(kDone, person.WaitForEnd()) << "nobody is asked for the second file";
    EXPECT_TRUE(fs::exists(Path() / "b.nvf"));
    const std::string summaries = person.Transcript();
    const std::size_t second = summaries.find("b.nvf");
    EXPECT_EQ(std::string::npos, summaries.find("not read")) << "rhythms are read in both";
    EXPECT_NE(std::string::npos, second);
    TerminalPerson again(kCells, kRows, Host({"a.tab"}));
    EXPECT_TRUE(again.WaitFor("[ ] Don't show this again")) << "a new run asks again";
    again.Type("\x1b");
    EXPECT_EQ(kCancelled, again.WaitForEnd());
}

TEST_F(Dialog, CancelEndsTheRun) {
    TerminalPerson person(kCells, kRows, Host({"a.tab", "b.tab"}));
    ASSERT_TRUE(person.WaitFor("<* OK *>"));
    person.Type("d\x1b");
    EXPECT_EQ(kCancelled, person.WaitForEnd());
    EXPECT_FALSE(fs::exists(Path() / "b.nvf"));
}

TEST_F(Dialog, YesAndRhythmsAskNobody) {
    for (const char* option : {"--yes", "--rhythms=always"}) {
        TerminalPerson person(kCells, kRows, Host({option, "a.tab"}));
        EXPECT_EQ(kDone, person.WaitForEnd()) << option;
        EXPECT_EQ(std::string::npos, person.Transcript().find("Open ASCII Tab")) << option;
    }
}

} // namespace
