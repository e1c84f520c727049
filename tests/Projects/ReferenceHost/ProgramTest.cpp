// The reference host as its user meets it: the program is run, its output and exit code are looked at.

#include "tests/support/ScratchFolder.h"
#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <sys/wait.h>

namespace {

namespace fs = std::filesystem;

struct Outcome {
    int ExitCode = -1;
    // Both streams, as they came.
    std::string Text;
};

class Program : public testing::Test, protected TestSupport::ScratchFolder {
protected:
    fs::path Tab(const std::string& name) const {
        std::string stave;
        fs::create_directories((Path() / name).parent_path());
        for (const char* letter : {"E", "B", "G", "D", "A", "E"})
            stave += std::string(letter) + "|-----" + (stave.empty() ? "3" : "-") + "-----|\n";
        return Write(name, stave);
    }

    // Runs the program in the folder with these arguments, as a shell would.
    Outcome Run(const std::string& arguments, const std::string& environment = "") const {
        const std::string command = "cd '" + Path().string() + "' && exec 2>&1 </dev/null; " + environment +
                                    FRETLINE_HOST + " --config config " + arguments;
        const std::string shell = Write("command", command);
        Outcome outcome;
        std::FILE* pipe = popen(("bash " + shell).c_str(), "r");
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
    for (const char* part : {"one note.tab", "Guitar, 6 strings", "standard (E2 A2 D3 G3 B3 E4)",
                             "Bars           1", "Notes          1", "Rhythms        not read",
                             "Chord symbols  0", "Labels         none", "Written        one note.nvf"})
        EXPECT_TRUE(Has(outcome.Text, part)) << part << " in\n" << outcome.Text;
    EXPECT_FALSE(Has(outcome.Text, "\x1b")) << "a pipe gets no colour";
    EXPECT_GT(Read("one note.nvf").size(), 1000U);
    EXPECT_FALSE(fs::exists(Path() / "config")) << "reading makes no folder of options";
}

// What people type, one after the other in one folder.
TEST_F(Program, DoesWhatPeopleTypeAndSaysSo) {
    Tab("a.tab");
    Tab("b.btab");
    Tab("in/c.tab");
    Tab("in/sub/d.crd");
    Tab("in/sub/e.txt");
    Write("in/prose.txt", "Only words.\n");
    Tab("twin/a.tab");
    Tab("twin/a.txt");
    Write("lonely.tab", "--------------------\n");
    Write("single.tab", std::string(20000, '-'));
    Write("empty.tab", "");
    Write("binary.tab", std::string(200, '\x80') + "------------\n");
    Write("words.tab", "Only words, and no line of dashes.\n");
    Write("gaps.tab",
          "E|--0-----------|\n\nB|-------------|\n\nG|-------------|\n\nD|-------------|\n\nA|-----"
          "--------|\n\nE|-------------|\n");
    ASSERT_EQ(0, Run("a.tab -o score.nvf -q").ExitCode);
    Write("cut.nvf", Read("score.nvf").substr(0, 5000));
    Write("foreign.nvf", "This is no score");
    fs::create_directory_symlink(".", Path() / "same");
    fs::create_symlink("../a.tab", Path() / "twin/link.mid");
    const struct {
        const char* Arguments;
        int ExitCode;
        // In what the program says; null for nothing at all.
        const char* Said;
        // A file that is there afterwards, or not ("-").
        const char* Files;
    } rows[] = {
        // Inputs
        {"a.tab", 0, "Written        a.nvf", "a.nvf"},
        {"in/sub/e.txt -o e.mid", 0, "a tab, whatever its extension says", "e.mid"},
        {"- < a.tab", 0, "Written        nothing: -o NAME", "-standard-input.nvf"},
        {"/dev/stdin -o s.mid < a.tab", 0, "standard input", "s.mid"},
        {"score.nvf --to mid", 0, "Notes          1", "score.mid"},
        {"in -o out/ --to mid,mxl", 0, "3 files: 3 done",
         "out/sub/d.mid out/sub/e.mxl out/c.mid -out/prose.mid"},
        {"missing.tab", 1, "cannot be opened", "-missing.nvf"},
        {"lonely.tab", 1, "Lines 1 to 1 inclusive don't seem to be part of a real stave", ""},
        {"single.tab", 1, "no stave", ""},
        {"empty.tab", 1, "is empty", ""},
        {"binary.tab", 1, "is not plain text", ""},
        {"words.tab", 1, "no line has 11 dashes or more\n", ""},
        {"gaps.tab", 1, "one below the other); --prepare would help: short\n", ""},
        {"- < gaps.tab", 1, "; --prepare would help: short\n", ""},
        {"gaps.tab --prepare -o gaps.mid", 0, "Prepared", "gaps.mid"},
        {"in/prose.txt", 1, "in/prose.txt: is no tab: no line", ""},
        {"cut.nvf --to mid", 1, "the score cannot be read", "-cut.mid"},
        {"foreign.nvf --to mid", 1, "the score cannot be read", "-foreign.mid"},
        {"missing.nvf", 1, "cannot be read", ""},
        {"a.tab missing.tab b.btab", 1,
         "3 files: 2 done, 1 refused or failed\n  missing.tab: cannot be opened", "b.nvf"},
        {"''", 2, "an empty name is no file", ""},
        {"", 2, "no file is given", ""},
        // Outputs
        {"a.tab -o x.mid -o y.musicxml -o z.html", 0, "y.musicxml", "x.mid y.musicxml z.html"},
        {"a.tab -o x.other", 2, "its extension names no format", "-x.other"},
        {"a.tab -o x.other --to mid", 0, "x.other", "x.other"},
        {"a.tab --to nonsense", 2, "there is no format nonsense", ""},
        {"a.tab b.btab -o one.mid", 2, "both a.tab and b.btab would be written to one.mid", "-one.mid"},
        {"twin -o two/", 2, "both twin/a.tab and twin/a.txt would be written to two/a.nvf", "-two"},
        {"a.tab -o x.mid -o ./x.mid", 2, "named twice", ""},
        {"a.tab -o ./a.tab --to mid", 2, "both read and written", ""},
        {"a.tab -o same/a.tab --to mid", 2, "both read and written", ""},
        {"a.tab -o twin/link.mid", 2, "both read and written", ""},
        {"a.tab -o same/x.mid -o x.mid", 2, "named twice", ""},
        {"a.tab b.btab -o - --to mid", 2, "several files cannot go to standard output", ""},
        {"a.tab -o -", 2, "needs one format", ""},
        {"a.tab -o /dev/full --to mid", 1, "cannot be written", ""},
        {"a.tab -o a.tab/x.mid", 1, "cannot be written", ""},
        {"a.tab -o made/deep/x.mid", 0, "made/deep/x.mid", "made/deep/x.mid"},
        {"a.tab -o x.mid --no-clobber", 0, "x.mid is there already and stays", "x.mid"},
        {"score.nvf -o x.html", 1, "no longer knows its text", ""},
        // What is printed
        {"in/c.tab --explain", 0, "fret number", "-in/c.nvf"},
        {"in/c.tab --dump", 0, "NvfFileVersion \"10450015\"\r\n{\r\n", "-in/c.nvf"},
        {"in/c.tab --json", 0, "\"notesStruck\":1", "-in/c.nvf"},
        {"missing.tab --json", 1, "\"taken\":false", ""},
        {"in/c.tab --explain=html", 0, "<span class=\"", "-in/c.nvf"},
        {"in/c.tab --json --dump", 2, "only one of", ""},
        {"a.tab -q", 0, nullptr, ""},
        {"a.tab --strict -q", 0, nullptr, ""},
        {"in -o out/ -q -j 2", 0, nullptr, "out/sub/e.nvf"},
        {"--help", 0, "mxl       MusicXML 4.0, compressed", ""},
        {"--version", 0, "fretline 1", ""},
        {"--no-such-option a.tab", 2, "unknown option --no-such-option", ""},
        {"a.tab -j 0", 2, "--jobs takes a number from 1 to 1024\n", ""},
        {"a.tab -j x", 2, "--jobs takes a number from 1 to 1024\n", ""},
        {"a.tab --layout sideways", 2, "--layout takes tab, notes or both\n", ""},
        {"a.tab --explain=pdf", 2, "--explain takes nothing, or html\n", ""},
        {"a.tab --rhythms", 2, "--rhythms takes never, indicated or always\n", ""},
        {"a.tab --rhythms sometimes", 2, "--rhythms takes never, indicated or always\n", ""},
        {"a.tab --remember", 2, "nothing to remember", ""},
        {"a.tab --plugin /missing.so", 2, "the plug-in cannot be loaded", ""},
    };
    for (const auto& row : rows) {
        const Outcome outcome = Run(row.Arguments);
        EXPECT_EQ(row.ExitCode, outcome.ExitCode) << row.Arguments << "\n" << outcome.Text;
        if (row.Said == nullptr)
            EXPECT_EQ("", outcome.Text) << row.Arguments;
        else
            EXPECT_TRUE(Has(outcome.Text, row.Said)) << row.Arguments << ": " << row.Said << " in\n"
                                                     << outcome.Text;
        std::istringstream files(row.Files);
        for (std::string name; files >> name;)
            EXPECT_EQ(name.front() != '-', fs::exists(Path() / name.substr(name.front() == '-' ? 1 : 0)))
                << row.Arguments << ": " << name;
    }
    EXPECT_TRUE(Has(Read("a.tab"), "E|--"));
    for (const auto& entry : fs::recursive_directory_iterator(Path()))
        EXPECT_FALSE(Has(entry.path().filename().string(), ".mid.")) << entry.path() << " is left behind";
}

TEST_F(Program, WritesStandardOutputAndNothingElseThere) {
    Tab("a.tab");
    ASSERT_EQ(0, Run("a.tab --to musicxml,mid -q").ExitCode);
    EXPECT_EQ(0, Run("a.tab -o - --to mid 2>said >bytes").ExitCode);
    EXPECT_EQ(Read("a.mid"), Read("bytes"));
    EXPECT_TRUE(Has(Read("said"), "Notes          1"));
    EXPECT_EQ(0, Run("- -o - --to musicxml 2>said <a.tab >bytes").ExitCode);
    EXPECT_TRUE(Has(Read("bytes"), "<score-partwise"));
    EXPECT_EQ(1, Run("a.tab >/dev/full").ExitCode);
    EXPECT_EQ(1, Run("a.tab --dump | head -c 10 >bytes; exit ${PIPESTATUS[0]}").ExitCode)
        << "nobody reads on";
    EXPECT_EQ(0, Run("a.tab -o x.nvf").ExitCode);
    EXPECT_EQ(0, Run("x.nvf --to musicxml,mid -q").ExitCode);
    EXPECT_EQ(Read("a.musicxml"), Read("x.musicxml")) << "a finished score serves as well";
    EXPECT_EQ(Read("a.mid"), Read("x.mid"));
}

TEST_F(Program, EngravesAndSaysWhatIsMissingForIt) {
    Tab("a.tab");
    EXPECT_EQ(0, Run("a.tab --to pdf,svg,png --layout tab -q").ExitCode)
        << "the program lilypond is one of those for tests";
    EXPECT_EQ("%PDF", Read("a.pdf").substr(0, 4));
    EXPECT_TRUE(Has(Read("a.svg"), "<svg"));
    EXPECT_EQ("\x89PNG", Read("a.png").substr(0, 4));
    const Outcome missing = Run("a.tab -o c.pdf", "PATH=/nonexistent ");
    EXPECT_EQ(1, missing.ExitCode);
    EXPECT_TRUE(Has(missing.Text, "apt install lilypond")) << missing.Text;
    EXPECT_FALSE(fs::exists(Path() / "c.pdf"));
}

TEST_F(Program, PreparesAnUntidyTabWhenAsked) {
    std::string text = "Riff\n\n";
    for (const char* letter : {"E", "B", "G", "D", "A", "E"})
        text +=
            std::string(letter) + (std::string(letter) == "A" ? "|-000---2-3----|\n" : "|--------------|\n");
    Write("untidy.tab", text + "\nla - la - la\n");
    const Outcome plain = Run("untidy.tab --verbose");
    EXPECT_TRUE(Has(plain.Text, "Untidy         --prepare would help: digits")) << plain.Text;
    const Outcome prepared = Run("untidy.tab --prepare --verbose");
    EXPECT_TRUE(Has(prepared.Text, "Notes          5")) << prepared.Text;
    EXPECT_TRUE(Has(prepared.Text, "Lines 10 to 10")) << "lines are those of the original";
    EXPECT_TRUE(Has(Run("untidy.tab --prepare=show").Text, "A|-0-0-0---2-3----|"))
        << Run("untidy.tab --prepare=show").Text;
    const Outcome explained = Run("untidy.tab --prepare=digits --explain");
    for (const char* part :
         {"@ line 3: digits\n-E|---", "columns: 4 at 0 for 128, 5 at 128 for 128, 6 at 256"})
        EXPECT_TRUE(Has(explained.Text, part)) << part << " in\n" << explained.Text;
    EXPECT_TRUE(Has(Run("untidy.tab --prepare=ascii").Text, "Notes          3"));
    EXPECT_EQ(2, Run("untidy.tab --prepare=nonsense").ExitCode);
    Write("glued.tab",
          "PM---------------|\n" + TestSupport::Stave("|-00--------2----|", 5) + "|---------7~~----|\n");
    const std::string json = Run("glued.tab --prepare --json").Text;
    EXPECT_TRUE(Has(json, R"({"kind":"vibrato","amount":0,"bar":1,"line":7,"column":11})"))
        << "places of the original\n"
        << json;
}

// A part of four notes and one of one.
std::string SongOfTwoParts() {
    const auto stave = [](const char* lowest) {
        std::string strings;
        for (int string = 0; string < 5; ++string)
            strings += "|---------------|\n";
        return strings + lowest + "\n";
    };
    return "Gtr I\n" + stave("|-0-0-3-0-------|") + "Gtr II\n" + stave("|-7-------------|");
}

TEST_F(Program, WritesAScoreForEachPart) {
    const std::string song = SongOfTwoParts();
    Write("song.tab", song);
    const Outcome beside = Run("song.tab --prepare=parts");
    EXPECT_EQ(0, beside.ExitCode) << beside.Text;
    EXPECT_TRUE(Has(beside.Text, "song.tab - Gtr I\n") && Has(beside.Text, "song.tab - Gtr II\n"))
        << beside.Text;
    EXPECT_TRUE(fs::exists(Path() / "song - Gtr I.nvf") && fs::exists(Path() / "song - Gtr II.nvf"));

    EXPECT_EQ(0, Run("song.tab --prepare=parts -o scores/ -o one.mid").ExitCode);
    for (const char* file :
         {"scores/song - Gtr I.nvf", "scores/song - Gtr II.nvf", "one - Gtr I.mid", "one - Gtr II.mid"})
        EXPECT_TRUE(fs::exists(Path() / file)) << file;
    EXPECT_EQ(0, Run("song.tab --prepare=parts -o /dev/null --to mid").ExitCode) << "a device has one name";

    const Outcome together = Run("song.tab --prepare=parts -o - --to musicxml");
    EXPECT_EQ(1, together.ExitCode);
    EXPECT_TRUE(Has(together.Text, "2 parts cannot go to standard output together")) << together.Text;
    EXPECT_FALSE(Has(together.Text, "<?xml"));

    const std::string json = Run("song.tab --prepare=parts --json").Text;
    EXPECT_EQ(2, std::count(json.begin(), json.end(), '\n')) << json;
    EXPECT_TRUE(Has(json, R"("notesStruck":4,)") && Has(json, R"("part":"Gtr I",)")) << json;
    EXPECT_TRUE(Has(json, R"("notesStruck":1,)") && Has(json, R"("part":"Gtr II",)")) << json;
    EXPECT_TRUE(Has(json, R"("line":2,)") && Has(json, R"("line":9,)")) << "lines of the whole text";

    std::string line = song;
    for (std::size_t at = 0; (at = line.find('\n', at)) != std::string::npos; at += 2)
        line.replace(at, 1, "\\n");
    Write("lines", "{\"id\":1,\"text\":\"" + line + "\"}\n");
    const std::string answer = Run("--json-lines --prepare=parts --to ly <lines").Text;
    EXPECT_TRUE(answer.starts_with(R"({"id":1,"taken":true,"parts":[{"part":"Gtr I","taken":true,"ly":)"))
        << answer;
    EXPECT_TRUE(Has(answer, R"({"part":"Gtr II","taken":true,)")) << answer;
    EXPECT_EQ(1, std::count(answer.begin(), answer.end(), '\n'));
}

TEST_F(Program, WritesNoPartOverWhatItReadsOrWritesElse) {
    const struct {
        const char* Inputs;
        const char* Said;
    } rows[] = {
        {"song.tab 'song - Gtr II.nvf'", "song.tab: song - Gtr II.nvf is both read and written"},
        {"song.tab 'song - Gtr II.tab'",
         "song.tab: both song - Gtr II.tab and song.tab would be written to song - Gtr II.nvf"},
        {"-o scores/ 'song - Gtr II.tab' song.tab", "would be written to scores/song - Gtr II.nvf"},
    };
    Write("song.tab", SongOfTwoParts());
    Tab("song - Gtr II.tab");
    ASSERT_EQ(0, Run("'song - Gtr II.tab' -o 'song - Gtr II.nvf' -q").ExitCode);
    const std::string score = Read("song - Gtr II.nvf");
    for (const auto& row : rows) {
        const Outcome outcome = Run("--prepare=parts " + std::string(row.Inputs));
        EXPECT_EQ(1, outcome.ExitCode) << row.Said << "\n" << outcome.Text;
        EXPECT_TRUE(Has(outcome.Text, row.Said) && Has(outcome.Text, "1 done, 1 refused")) << outcome.Text;
    }
    EXPECT_EQ(score, Read("song - Gtr II.nvf"));
    EXPECT_EQ(score, Read("scores/song - Gtr II.nvf")) << "what is no part is written";
    EXPECT_FALSE(fs::exists(Path() / "song - Gtr I.nvf") || fs::exists(Path() / "scores/song - Gtr I.nvf"))
        << "no part is written when one of them cannot be";
}

TEST_F(Program, LooksAtATabInAFolderThatCannotBeWritten) {
    Tab("there/a.tab");
    for (const char* looking : {"--explain", "--json", "--dump", "--doubts"}) {
        EXPECT_EQ(0, Run(std::string("there/a.tab ") + looking).ExitCode) << looking;
        EXPECT_EQ(1, std::distance(fs::directory_iterator(Path() / "there"), {})) << looking;
    }
}

TEST_F(Program, KeepsTheRhythmLevelOnlyWhenAsked) {
    Tab("a.tab");
    EXPECT_TRUE(Has(Run("a.tab --rhythms always").Text, "Rhythms        read"));
    EXPECT_TRUE(Has(Run("a.tab").Text, "Rhythms        not read")) << "it held for that run";
    EXPECT_TRUE(Has(Run("a.tab --rhythms always --remember").Text, "Rhythms        read"));
    EXPECT_TRUE(Has(Read("config/FretlineOptions.txt"), "RhythmLevel \"2\""));
    EXPECT_TRUE(Has(Run("a.tab").Text, "Rhythms        read")) << "it stays for the next call";
    EXPECT_TRUE(Has(Run("a.tab --rhythms never").Text, "Rhythms        not read"));
    EXPECT_TRUE(Has(Read("config/FretlineOptions.txt"), "RhythmLevel \"2\""));
}

TEST_F(Program, ConvertsManyFilesInOrderInManyProcesses) {
    constexpr int kFiles = 60;
    for (int i = 0; i < kFiles; ++i)
        Tab("in/" + std::to_string(100 + i) + ".tab");
    Write("in/130.tab", "words");
    const Outcome one = Run("in --json -j 1");
    const Outcome four = Run("in --json -j 4");
    EXPECT_EQ(1, four.ExitCode);
    EXPECT_EQ(one.Text, four.Text);
    EXPECT_TRUE(Has(four.Text, "60 files: 59 done, 1 refused or failed\n  in/130.tab: is no tab"));
    EXPECT_LT(four.Text.find("in/100.tab"), four.Text.find("in/159.tab"));
}

TEST_F(Program, GoesOnAfterATabThatMemoryIsTooSmallFor) {
    if (FRETLINE_IS_SANITIZED != 0)
        GTEST_SKIP() << "a sanitizer takes more address space than any limit leaves";
    Tab("small.tab");
    constexpr int kStaves = 12000;
    std::string large;
    for (int stave = 0; stave < kStaves; ++stave)
        large += Read("small.tab") + "\n";
    Write("large.tab", large);
    bool isToldByHost = false;
    // The plug-in stops at the first ones, the host itself at the others.
    for (const char* const kilobytes : {"30000", "60000", "80000"}) {
        fs::remove(Path() / "small.musicxml");
        const Outcome outcome =
            Run("large.tab small.tab --to musicxml -j 1", std::string("ulimit -v ") + kilobytes + "; ");
        EXPECT_FALSE(Has(outcome.Text, "terminate")) << kilobytes << outcome.Text;
        EXPECT_TRUE(fs::exists(Path() / "small.musicxml")) << kilobytes << outcome.Text;
        isToldByHost = isToldByHost || Has(outcome.Text, "large.tab: there is not enough memory for it");
    }
    EXPECT_TRUE(isToldByHost) << "no limit was in the middle";
}

TEST_F(Program, EndsInOrderWhenItIsInterrupted) {
    constexpr int kFiles = 400;
    for (int i = 0; i < kFiles; ++i)
        Tab("in/" + std::to_string(1000 + i) + ".tab");
    const std::pair<std::string, int> cases[] = {{"INT", 130}, {"TERM", 143}, {"HUP", 143}};
    fs::create_directory(Path() / "tmp");
    for (const auto& [signal, exitCode] : cases) {
        // Through a shell of its own, whose group gets the signal as a terminal would send it.
        const std::string out = "out-" + signal;
        const Outcome outcome = Run("in -o " + out + "/ -q -j 2 & until [ -e " + out +
                                        "/1000.nvf ]; do sleep 0.02; done; kill -" + signal + " $!; wait $!",
                                    "export TMPDIR=\"$PWD/tmp\"; env --default-signal=HUP ");
        EXPECT_EQ(exitCode, outcome.ExitCode) << outcome.Text;
        const std::string whole = Read(out + "/1000.nvf");
        for (const auto& entry : fs::directory_iterator(Path() / out))
            EXPECT_EQ(whole.size(), fs::file_size(entry)) << entry.path() << " is not whole";
        EXPECT_TRUE(fs::is_empty(Path() / "tmp")) << signal;
    }
}

TEST_F(Program, LeavesNothingOfAKilledWorker) {
    constexpr int kFiles = 60;
    for (int i = 0; i < kFiles; ++i)
        Tab("in/" + std::to_string(1000 + i) + ".tab");
    fs::create_directory(Path() / "tmp");
    const Outcome outcome = Run("in -o out/ -q -j 2 & until [ -e out/1000.nvf ]; do sleep 0.02; done; "
                                "kill -KILL $(cat /proc/$!/task/$!/children); wait $!",
                                "export TMPDIR=\"$PWD/tmp\"; ");
    EXPECT_EQ(1, outcome.ExitCode) << outcome.Text;
    EXPECT_TRUE(Has(outcome.Text, "Killed")) << outcome.Text;
    EXPECT_TRUE(fs::is_empty(Path() / "tmp"));
}

TEST_F(Program, AnswersJsonLinesOneByOne) {
    std::string text;
    for (const char c : Read(Tab("a.tab").filename().string()))
        text += c == '\n' ? std::string("\\n") : std::string(1, c);
    Write("lines", "{\"id\":7,\"text\":\"" + text + "\"}\n\n{\"id\":\"b\"}\nno json\n{\"text\":\"words\"}");
    for (const char* jobs : {"-j 1", "-j 3"}) {
        ASSERT_EQ(0,
                  Run(std::string("--json-lines --json --to musicxml,mid <lines >answers ") + jobs).ExitCode);
        std::istringstream answers(Read("answers"));
        std::vector<std::string> lines;
        for (std::string line; std::getline(answers, line);)
            lines.push_back(line);
        ASSERT_EQ(4U, lines.size()) << jobs;
        for (const char* part :
             {"{\"id\":7,\"taken\":true", "\"notesStruck\":1", "<score-partwise", "\"mid\":\"TVRoZA"})
            EXPECT_TRUE(Has(lines[0], part)) << part << " in " << lines[0];
        EXPECT_TRUE(Has(lines[1], "{\"id\":\"b\",\"taken\":false,\"reason\":\"the line is no JSON object"))
            << lines[1];
        EXPECT_TRUE(Has(lines[2], "{\"id\":null,\"taken\":false")) << lines[2];
        EXPECT_TRUE(Has(lines[3], "is no tab: no line has 11 dashes")) << lines[3];
    }
    // Somebody who waits for an answer gets it, whatever empty lines came after the question.
    const Outcome waiting =
        Run("--json-lines --to mid -j 2 >answer < <(head -n 1 lines; printf '\\n\\n \\n'; "
            "for i in {1..400}; do [ -s answer ] && exit; sleep 0.02; done; touch late)");
    EXPECT_EQ(0, waiting.ExitCode) << waiting.Text;
    EXPECT_FALSE(fs::exists(Path() / "late"));
    EXPECT_EQ(2, Run("--json-lines a.tab").ExitCode);
}

TEST_F(Program, CountsMessagesOfOneKindAndTellsThemWhenAsked) {
    std::string text = Read(Tab("a.tab").filename().string());
    for (int i = 0; i < 5; ++i)
        text += "\nla - la - la\n";
    Write("many.tab", text);
    const Outcome counted = Run("many.tab");
    EXPECT_TRUE(Has(counted.Text, "(and 4 like it: --verbose)")) << counted.Text;
    const Outcome told = Run("many.tab --verbose");
    EXPECT_TRUE(Has(told.Text, "many.tab: Lines 8 to 8")) << told.Text;
    EXPECT_TRUE(Has(told.Text, "many.tab: Lines 16 to 16"));
}

TEST_F(Program, TellsWhatIsDoubtful) {
    std::string text = Read(Tab("a.tab").filename().string());
    Write("doubt.tab", "Tuning: DADGAD\n\n" + text);
    EXPECT_TRUE(Has(Run("doubt.tab").Text, "Doubts         2:")) << Run("doubt.tab").Text;
    EXPECT_EQ(3, Run("doubt.tab --strict").ExitCode);
    EXPECT_TRUE(Has(Run("doubt.tab --json").Text, "\"doubts\":[{\"kind\":\""));
    EXPECT_TRUE(Has(Run("doubt.tab --doubts").Text, "line 1"));
}

TEST_F(Program, ShowsNotesOfAStaveThatIsHigherThanTheFirst) {
    const std::string line = "|-1-----3-----1---|\n";
    std::string text;
    // Barlines that stand elsewhere: it is no part of its own.
    for (int i = 0; i < 4 + 6; ++i)
        text += i < 4 ? line : (i == 4 ? "\n--" : "--") + line;
    Write("mixed.tab", text);
    EXPECT_EQ(0, Run("mixed.tab --to nvf,musicxml,mid,ly").ExitCode);
    EXPECT_TRUE(Has(Read("mixed.ly"), "TabStaff.stringTunings = \\stringTuning < e, a, d g b e' >"));
    EXPECT_EQ(0, Run("mixed.nvf -o alone.ly").ExitCode);
    EXPECT_TRUE(Has(Read("alone.ly"), "openingTab")) << "a score of four strings has no fifth one";
}

TEST_F(Program, ExplainsWhatItRead) {
    Write("song.tab", "  Verse\n    Am\n" + Read(Tab("a.tab").filename().string()));
    const Outcome text = Run("song.tab --explain");
    EXPECT_EQ(0, text.ExitCode) << text.Text;
    for (const char* part :
         {"fret number", "stave of 6 lines, tuned E2 A2 D3 G3 B3 E4 by its letters", "bar 1, columns 3 to 13",
          "chord Am: to column 8", "rhythm: none, each column one quaver", "section label"})
        EXPECT_TRUE(Has(text.Text, part)) << part << " in\n" << text.Text;
    const Outcome way = Run(FRETLINE_SOURCE_DIR "/tests/exports/way.tab --explain");
    for (const char* part :
         {"an ending, played at time 1", "from its end, D.S. al Coda", "begins with the Segno",
          "a repeat ends, played 2 times", "tempo 60 from here", "5h7  hammer-on"})
        EXPECT_TRUE(Has(way.Text, part)) << part << " in\n" << way.Text;
    EXPECT_TRUE(Has(Run(FRETLINE_SOURCE_DIR "/examples/round-for-two.tab --explain").Text, "; part Bass\n"));
    EXPECT_EQ(0, Run("song.tab --explain=html > song.html").ExitCode);
    EXPECT_TRUE(Has(Read("song.html"), "<span class=\"chord\">Am</span>"));
    EXPECT_FALSE(Has(Read("song.html"), "<script"));
}

} // namespace
