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
    std::function<int()> Host(std::vector<const char*> files) const {
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

TEST_F(Dialog, FirstUseShowsTheMiddleChoiceAndWritesTheFile) {
    TerminalPerson person(kCells, kRows, Host({"a.tab"}));
    ASSERT_TRUE(person.WaitFor("<* OK *>"));
    EXPECT_GE(person.RowOf("Open ASCII Tab"), 0);
    EXPECT_GE(person.RowOf("(*) Only import rhythms when they are indicated"), 0);
    EXPECT_GE(person.RowOf("[ ] Don't show this again"), 0);
    EXPECT_EQ(Level(1), Stored()) << "while the dialog is still open";
    person.Type("\r");
    EXPECT_EQ(kDone, person.WaitForEnd());
}

TEST_F(Dialog, TheChoiceIsStoredAndUsed) {
    TerminalPerson person(kCells, kRows, Host({"a.tab"}));
    ASSERT_TRUE(person.WaitFor("<* OK *>"));
    person.Type("a\r");
    EXPECT_EQ(kDone, person.WaitForEnd());
    EXPECT_EQ(Level(2), Stored());
    EXPECT_NE(std::string::npos, person.Transcript().find("Rhythms")) << "the summary follows";
    TerminalPerson again(kCells, kRows, Host({"a.tab"}));
    ASSERT_TRUE(again.WaitFor("(*) Always import rhythms"));
}

TEST_F(Dialog, CancelKeepsTheStoredLevelAndGivesNoScore) {
    Store(Level(0));
    TerminalPerson person(kCells, kRows, Host({"a.tab"}));
    ASSERT_TRUE(person.WaitFor("(*) Never import rhythms"));
    person.Type("a\x1b");
    EXPECT_EQ(kCancelled, person.WaitForEnd());
    EXPECT_EQ(Level(0), Stored());
    EXPECT_FALSE(fs::exists(Path() / "a.nvf"));
}

TEST_F(Dialog, AnOddLevelSelectsNothingAndOkMakesItNever) {
    Store(Level(7));
    TerminalPerson person(kCells, kRows, Host({"a.tab"}));
    ASSERT_TRUE(person.WaitFor("<* OK *>"));
    EXPECT_LT(person.RowOf("(*)"), 0);
    person.Type("\r");
    EXPECT_EQ(kDone, person.WaitForEnd());
    EXPECT_EQ(Level(0), Stored());
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
}

TEST_F(Dialog, CancelEndsTheRun) {
    TerminalPerson person(kCells, kRows, Host({"a.tab", "b.tab"}));
    ASSERT_TRUE(person.WaitFor("<* OK *>"));
    person.Type("d\x1b");
    EXPECT_EQ(kCancelled, person.WaitForEnd());
    EXPECT_FALSE(fs::exists(Path() / "b.nvf"));
}

TEST_F(Dialog, OtherEntriesOfTheFileStayAndADamagedFileHarmsNothing) {
    Store(
        "\r\n{\r\n\tColour \"red\"\r\n\tRhythmLevel \"1\"\r\n\tOther\r\n\t{\r\n\t\tA \"b\"\r\n\t}\r\n}\r\n");
    {
        TerminalPerson person(kCells, kRows, Host({"a.tab"}));
        ASSERT_TRUE(person.WaitFor("<* OK *>"));
        person.Type("n\r");
        EXPECT_EQ(kDone, person.WaitForEnd());
        EXPECT_EQ("\r\n{\r\n\tColour \"red\"\r\n\tRhythmLevel \"0\"\r\n\tOther\r\n\t{\r\n\t\tA "
                  "\"b\"\r\n\t}\r\n}\r\n",
                  Stored());
    }
    Store("}{ @ nothing that can be read");
    TerminalPerson person(kCells, kRows, Host({"a.tab"}));
    ASSERT_TRUE(person.WaitFor("(*) Only import rhythms"));
    person.Type("\r");
    EXPECT_EQ(kDone, person.WaitForEnd());
    EXPECT_EQ(Level(1), Stored());
}

TEST_F(Dialog, YesAndRhythmsAskNobody) {
    for (const char* option : {"--yes", "--rhythms=always"}) {
        TerminalPerson person(kCells, kRows, Host({option, "a.tab"}));
        EXPECT_EQ(kDone, person.WaitForEnd()) << option;
        EXPECT_EQ(std::string::npos, person.Transcript().find("Open ASCII Tab")) << option;
    }
}

} // namespace
