// The reference host as its user meets it: the program is run, its output and exit code are looked at.

#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <sys/wait.h>

namespace {

namespace fs = std::filesystem;

constexpr const char* kStave = "E|-----|\nB|-----|\nG|-----|\nD|-----|\nA|-----|\nE|-0---|\n------------\n";

struct Outcome {
    int ExitCode = -1;
    /// Both streams, as they came.
    std::string Text;
};

class Program : public testing::Test, protected TestSupport::ScratchFolder {
protected:
    fs::path Tab(const std::string& name) const {
        std::string stave;
        for (const char* letter : {"E", "B", "G", "D", "A", "E"})
            stave += std::string(letter) + "|-----" + (stave.empty() ? "3" : "-") + "-----|\n";
        return Write(name, stave);
    }

    /// Runs the program in the folder with these arguments, as a shell would.
    Outcome Run(const std::string& arguments) const {
        const std::string command = "cd '" + Path().string() + "' && '" FRETLINE_HOST "' --config config " +
                                    arguments + " 2>&1 </dev/null";
        Outcome outcome;
        std::FILE* pipe = popen(command.c_str(), "r");
        std::array<char, 4096> bytes{};
        for (std::size_t count = 0; (count = fread(bytes.data(), 1, bytes.size(), pipe)) > 0;)
            outcome.Text.append(bytes.data(), count);
        const int status = pclose(pipe);
        outcome.ExitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + status;
        return outcome;
    }
};

bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST_F(Program, LeavesTheScoreBesideTheTabAndSaysWhatIsInIt) {
    Tab("one note.tab");
    const Outcome outcome = Run("'one note.tab'");
    EXPECT_EQ(0, outcome.ExitCode) << outcome.Text;
    for (const char* part :
         {"one note.tab", "Guitar, 6 strings", "Bars           1", "Notes          1",
          "Rhythms        not read", "Chord symbols  0", "Labels         none", "one note.nvf"})
        EXPECT_TRUE(Has(outcome.Text, part)) << part << " in\n" << outcome.Text;
    EXPECT_FALSE(Has(outcome.Text, "\x1b")) << "a pipe gets no colour";
    EXPECT_GT(Read("one note.nvf").size(), 1000U);
}

TEST_F(Program, DumpsAOneNoteTabAsItsTree) {
    Tab("a.tab");
    const Outcome outcome = Run("a.tab --dump");
    EXPECT_EQ(0, outcome.ExitCode);
    EXPECT_EQ(0U, outcome.Text.find("NvfFileVersion \"10450015\"\r\n{\r\n"));
    EXPECT_TRUE(Has(outcome.Text, "Durn \"7\"")) << "a quaver";
    EXPECT_TRUE(Has(outcome.Text, "BarLength \"128\""));
    EXPECT_TRUE(Has(outcome.Text, "StaveType \"stafftype.tab.6.guitar.standard\""));
}

TEST_F(Program, PutsScoresWhereTheUserWantsThem) {
    Tab("a.tab");
    Tab("b.btab");
    fs::create_directory(Path() / "there");
    EXPECT_EQ(0, Run("a.tab b.btab -o there").ExitCode);
    EXPECT_TRUE(fs::exists(Path() / "there/a.nvf") && fs::exists(Path() / "there/b.nvf"));
    EXPECT_EQ(0, Run("a.tab -o named.nvf").ExitCode);
    EXPECT_EQ(Read("named.nvf"), Read("there/a.nvf"));
    EXPECT_EQ(2, Run("a.tab b.btab -o one.nvf").ExitCode) << "two scores do not go into one file";
    EXPECT_EQ(2, Run("a.tab --midi x --svg x").ExitCode) << "one target named twice";
    EXPECT_EQ(2, Run("a.tab --svg ./a.tab").ExitCode) << "the tab itself is no target";
    EXPECT_TRUE(Has(Read("a.tab"), "E|--"));
    EXPECT_EQ(1, Run("a.tab -o missing/a.nvf").ExitCode);
}

TEST_F(Program, SaysWhyAFileGaveNoScore) {
    Write("empty.tab", "");
    Write("prose.tab", "Only words, and no line of dashes.\n");
    Write("binary.tab", std::string(200, '\x80') + "------------\n");
    Write("song.txt", kStave);
    Write("lonely.tab", "--------------------\n");
    Write("single.tab", std::string(20000, '-'));
    fs::create_directory(Path() / "folder.tab");
    const struct {
        const char* Argument;
        const char* Reason;
    } cases[] = {
        {"empty.tab", "is empty"},           {"prose.tab", "no line has 11 dashes or more"},
        {"binary.tab", "is not plain text"}, {"song.txt", "not one of tab, btab or crd"},
        {"missing.tab", "cannot be opened"}, {"folder.tab", "is a folder"},
        {"lonely.tab", "no stave"},          {"single.tab", "no stave"},
    };
    for (const auto& row : cases) {
        const Outcome outcome = Run(row.Argument);
        EXPECT_EQ(1, outcome.ExitCode) << row.Argument;
        EXPECT_TRUE(Has(outcome.Text, row.Reason)) << row.Argument << ": " << outcome.Text;
    }
    EXPECT_TRUE(Has(Run("lonely.tab").Text, "Lines 1 to 1 inclusive don't seem to be part of a real stave"))
        << "and what the plug-in said";
}

TEST_F(Program, OneFileThatFailsDoesNotStopTheRest) {
    Tab("a.tab");
    Tab("c.tab");
    const Outcome outcome = Run("a.tab missing.tab c.tab");
    EXPECT_EQ(1, outcome.ExitCode);
    EXPECT_TRUE(fs::exists(Path() / "a.nvf") && fs::exists(Path() / "c.nvf"));
}

TEST_F(Program, StoresTheRhythmLevel) {
    Tab("a.tab");
    EXPECT_EQ(0, Run("a.tab --rhythms always").ExitCode);
    EXPECT_TRUE(Has(Read("config/FretlineOptions.txt"), "RhythmLevel \"2\""));
    EXPECT_TRUE(Has(Run("a.tab").Text, "Rhythms        read")) << "it stays for the next call";
    EXPECT_EQ(2, Run("a.tab --rhythms sometimes").ExitCode);
}

TEST_F(Program, AnswersWhatPeopleAskAProgram) {
    const Outcome help = Run("--help");
    EXPECT_EQ(0, help.ExitCode);
    EXPECT_TRUE(Has(help.Text, "--rhythms") && Has(help.Text, "--output"));
    EXPECT_EQ(0, Run("--version").ExitCode);
    EXPECT_EQ(2, Run("").ExitCode) << "no file";
    EXPECT_EQ(2, Run("--no-such-option a.tab").ExitCode);
    EXPECT_EQ(2, Run("a.tab --plugin /missing.so").ExitCode);
}

TEST_F(Program, HandsAScoreOnInOtherFormats) {
    Tab("a.tab");
    EXPECT_EQ(0, Run("a.tab --musicxml a.musicxml --midi a.mid --svg a.svg").ExitCode);
    EXPECT_TRUE(Has(Read("a.musicxml"), "<score-partwise"));
    EXPECT_EQ("MThd", Read("a.mid").substr(0, 4));
    EXPECT_TRUE(Has(Read("a.svg"), "<svg"));
    EXPECT_EQ(0, Run("a.nvf --musicxml again.musicxml --midi again.mid").ExitCode)
        << "a finished score serves as well";
    EXPECT_EQ(Read("a.musicxml"), Read("again.musicxml"));
    EXPECT_EQ(Read("a.mid"), Read("again.mid"));
    EXPECT_EQ(0, Run("a.nvf --musicxml a.mxl").ExitCode);
    EXPECT_EQ("PK", Read("a.mxl").substr(0, 2));
}

TEST_F(Program, ShowsNotesOfAStaveThatIsHigherThanTheFirst) {
    const std::string line = "|-1-----3-----1---|\n";
    std::string text;
    for (int i = 0; i < 4 + 6; ++i)
        text += i == 4 ? "\n" + line : line;
    Write("mixed.tab", text);
    EXPECT_EQ(0, Run("mixed.tab --musicxml a.musicxml --midi a.mid --svg a.svg").ExitCode);
    EXPECT_TRUE(Has(Read("a.svg"), ">?<")) << "a stave of four lines has no fifth string";
}

TEST_F(Program, RefusesDamagedScoresAndLeavesNoHalfWrittenFile) {
    Tab("a.tab");
    ASSERT_EQ(0, Run("a.tab").ExitCode);
    Write("cut.nvf", Read("a.nvf").substr(0, 5000));
    Write("foreign.nvf", "This is no score");
    Write("other tree.nvf", std::string("\0\2\0\0\0\0\0\0\0\0\0\0\0\0\0\0", 16));
    for (const char* name : {"cut.nvf", "foreign.nvf", "'other tree.nvf'", "missing.nvf"}) {
        const Outcome outcome = Run(std::string(name) + " --midi out.mid");
        EXPECT_EQ(1, outcome.ExitCode) << name;
        EXPECT_TRUE(Has(outcome.Text, "cannot be read")) << outcome.Text;
    }
    EXPECT_FALSE(fs::exists(Path() / "out.mid"));
    EXPECT_EQ(1, Run("a.nvf --midi missing/out.mid").ExitCode);
    EXPECT_EQ(1, Run("a.nvf --midi /dev/full").ExitCode);
}

TEST_F(Program, ExplainsWhatItRead) {
    Write("song.tab", "  Verse\n    Am\n" + Read(Tab("a.tab").filename().string()));
    const Outcome text = Run("song.tab --explain");
    EXPECT_EQ(0, text.ExitCode) << text.Text;
    for (const char* part :
         {"fret number", "stave of 6 lines, tuned E2 A2 D3 G3 B3 E4 by its letters", "bar 1, columns 3 to 13",
          "chord Am: to column 8", "rhythm: none, each column one quaver", "section label"})
        EXPECT_TRUE(Has(text.Text, part)) << part << " in\n" << text.Text;
    EXPECT_EQ(0, Run("song.tab --explain=html -o song.nvf > song.html").ExitCode);
    EXPECT_TRUE(Has(Read("song.html"), "<span class=\"chord\">Am</span>"));
    EXPECT_FALSE(Has(Read("song.html"), "<script"));
    EXPECT_FALSE(Has(text.Text, "To try")) << "nothing of it is doubtful";
}

TEST_F(Program, ExplainsWhatIsDoubtful) {
    const std::string tab = Read(Tab("a.tab").filename().string());
    Write("song.tab", "  Fill\n" + tab);
    EXPECT_TRUE(
        Has(Run("song.tab --explain").Text, "????\n       ? column 3, chords read from words: the chord F"));
    EXPECT_EQ(0, Run("song.tab --explain=html -o song.nvf > song.html").ExitCode);
    EXPECT_TRUE(Has(Read("song.html"), "<span class=\"chord doubt\">F</span>"));
}

} // namespace
