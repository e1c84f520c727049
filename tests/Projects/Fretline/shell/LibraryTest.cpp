// The built library, as a host gets it.

#include "tests/support/RecordingHost.h"
#include "tests/support/ScratchTempFolder.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <sstream>

namespace {

/// What a command writes to its standard output.
std::string OutputOf(const std::string& command) {
    std::string text;
    FILE* const pipe = popen(command.c_str(), "r");
    std::array<char, 4096> block;
    while (const std::size_t length = std::fread(block.data(), 1, block.size(), pipe))
        text.append(block.data(), length);
    pclose(pipe);
    return text;
}

std::vector<std::string> SortedWords(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    std::sort(words.begin(), words.end());
    return words;
}

TEST(Library, ExportsTheNamesOfTheListAndNothingElse) {
    std::ifstream list(FRETLINE_EXPORTS_LIST);
    const std::string listed{std::istreambuf_iterator<char>(list), {}};
    ASSERT_EQ(SortedWords(listed).size(), 5U);
    // "address type name" a line, weak and unique symbols too.
    const std::string table =
        OutputOf(FRETLINE_NM " -D --defined-only --format=posix '" FRETLINE_LIBRARY "'");
    std::istringstream lines(table);
    std::string exported;
    for (std::string line; std::getline(lines, line);)
        exported += line.substr(0, line.find(' ')) + " ";
    EXPECT_EQ(SortedWords(exported), SortedWords(listed)) << table;
}

TEST(Library, IsStartedByAHostWithAllSixFunctionsOnlyHoweverItIsLoaded) {
    const std::string nothing = ": messages 0, chosen 0\n";
    const std::string ended = "term: 1 1\nended" + nothing;
    const std::string complete =
        "before" + nothing + "init: 1, 3 file types, 8\nstarted: messages 1, chosen 2029\n" + ended;
    const std::string lacking = "before" + nothing + "init: 0, 3 file types, 8\nstarted" + nothing + ended;
    std::vector<std::pair<std::string, bool>> hosts = {{"", true}, {"_linked", true}};
    for (const std::string function :
         {"LOADTEMPFILE", "RESULTSDIALOGMESSAGE", "UPDATEPROGRESSDIALOG", "DESTROYPROGRESSDIALOG",
          "CREATEPROGRESSDIALOG_2", "CHOOSETRANSPOSINGINSTRUMENTS"})
        hosts.emplace_back("_without_NVR_" + function, false);
    for (const std::string function : {"RESULTSDIALOGMESSAGE", "CHOOSETRANSPOSINGINSTRUMENTS"})
        hosts.emplace_back("_linked_without_NVR_" + function, false);
    // Each is a build of hosts/MinimalHost.c, which tells of its start.
    for (const auto& [host, isComplete] : hosts)
        for (const char* const mode : {"local", "global"})
            EXPECT_EQ(OutputOf("'" FRETLINE_HOSTS_FOLDER "/minimal_host" + host +
                               "' '" FRETLINE_LIBRARY "' " + mode + " 2>&1"),
                      isComplete ? complete : lacking)
                << host << " " << mode;
}

TEST(Library, ConvertsAFileForThisProgramAndCanBeUnloaded) {
    const TestSupport::ScratchFolder folder;
    const TestSupport::ScratchTempFolder temp;
    const std::string dashes = "|--------------|\n";
    const std::string tab =
        folder.Write("a.tab", dashes + dashes + dashes + dashes + dashes + "|--0--2--------|\n");
    {
        TestSupport::RecordingHost host(FRETLINE_LIBRARY, folder.Path());
        ASSERT_TRUE(host.IsReady());
        EXPECT_EQ(host.Open(tab), 1);
        const std::vector<std::string>& calls = host.GetCalls();
        ASSERT_EQ(calls.size(), 10U);
        EXPECT_EQ(calls.front(), "create Importing Tab file|0|100|30");
        EXPECT_EQ(calls[7], "load");
        EXPECT_EQ(calls.back(), "destroy");
        EXPECT_FALSE(host.GetScore().empty());
        EXPECT_EQ(host.Open(tab + ".txt"), 0);
    }
    EXPECT_TRUE(temp.IsEmpty());
    EXPECT_EQ(dlopen(FRETLINE_LIBRARY, RTLD_NOW | RTLD_NOLOAD), nullptr) << "nothing keeps it loaded";
}

} // namespace
