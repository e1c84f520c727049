// The built library, as a host gets it.

#include "Shared/NotaveraAPI/NotaveraPlugin.h"
#include "tests/support/FakeHost.h"
#include "tests/support/ScratchFolder.h"

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

/// A build of hosts/MinimalHost.c, and what it tells of its start.
struct HostCase {
    const char* Program;
    bool IsComplete;
};

constexpr HostCase kHosts[] = {
    {"minimal_host", true},
    {"minimal_host_linked", true},
    {"minimal_host_without_NVR_LOADTEMPFILE", false},
    {"minimal_host_without_NVR_RESULTSDIALOGMESSAGE", false},
    {"minimal_host_without_NVR_UPDATEPROGRESSDIALOG", false},
    {"minimal_host_without_NVR_DESTROYPROGRESSDIALOG", false},
    {"minimal_host_without_NVR_CREATEPROGRESSDIALOG_2", false},
    {"minimal_host_without_NVR_CHOOSETRANSPOSINGINSTRUMENTS", false},
    {"minimal_host_linked_without_NVR_RESULTSDIALOGMESSAGE", false},
    {"minimal_host_linked_without_NVR_CHOOSETRANSPOSINGINSTRUMENTS", false},
};

TEST(Library, IsStartedByAHostWithAllSixFunctionsOnlyHoweverItIsLoaded) {
    const std::string complete = "before: messages 0, chosen 0\n"
                                 "init: 1, 3 file types, 8\n"
                                 "started: messages 1, chosen 2029\n"
                                 "term: 1 1\n"
                                 "ended: messages 0, chosen 0\n";
    const std::string lacking = "before: messages 0, chosen 0\n"
                                "init: 0, 3 file types, 8\n"
                                "started: messages 0, chosen 0\n"
                                "term: 1 1\n"
                                "ended: messages 0, chosen 0\n";
    for (const HostCase& host : kHosts)
        for (const char* const mode : {"local", "global"})
            EXPECT_EQ(OutputOf("'" FRETLINE_HOSTS_FOLDER "/" + std::string(host.Program) +
                               "' '" FRETLINE_LIBRARY "' " + mode + " 2>&1"),
                      host.IsComplete ? complete : lacking)
                << host.Program << " " << mode;
}

/// The library, loaded for the length of a test.
class LoadedLibrary {
public:
    LoadedLibrary() : m_Library(dlopen(FRETLINE_LIBRARY, RTLD_NOW | RTLD_LOCAL)) {}
    ~LoadedLibrary() { dlclose(m_Library); }
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;

    void* Module() const { return m_Library; }
    template <class Function>
    Function* Find(const char* name) const {
        return reinterpret_cast<Function*>(dlsym(m_Library, name));
    }

private:
    void* m_Library;
};

TEST(Library, ConvertsAFileForThisProgramAndCanBeUnloaded) {
    const TestSupport::ScratchFolder folder;
    const TestSupport::ScratchTempFolder temp;
    const std::string dashes = "|--------------|\n";
    const std::string tab =
        folder.Write("a.tab", dashes + dashes + dashes + dashes + dashes + "|--0--2--------|\n");
    TestSupport::FakeHost host;
    {
        const LoadedLibrary library;
        ASSERT_NE(library.Module(), nullptr) << dlerror();
        HostInitRecord record{};
        record.ResourceModule = library.Module();
        record.ProgressContext = host.Context();
        record.ConfigFolder = folder.Path().c_str();
        PluginInfoRecord info{};
        ASSERT_EQ(library.Find<int(const HostInitRecord*, PluginInfoRecord*)>("NVR_INIT")(&record, &info), 1);
        EXPECT_EQ(library.Find<int(const HostInitRecord*, PluginInfoRecord*)>("NVR_INIT")(nullptr, &info), 0);
        EXPECT_EQ(library.Find<int(const char*)>("NVR_OPENFILE")(tab.c_str()), 1);
        EXPECT_EQ(library.Find<int(const char*)>("NVR_OPENFILE")(nullptr), 0);
        EXPECT_EQ(library.Find<int()>("NVR_TERM")(), 1);
    }
    EXPECT_EQ(host.Calls, (std::vector<std::string>{"create Importing Tab file|0|100|30", "update 0",
                                                    "update 0", "update 10", "update 20", "update 20",
                                                    "update 80", "load", "update 100", "destroy"}));
    EXPECT_FALSE(host.LoadedBytes.empty());
    EXPECT_TRUE(temp.IsEmpty());
    EXPECT_EQ(dlopen(FRETLINE_LIBRARY, RTLD_NOW | RTLD_NOLOAD), nullptr) << "nothing keeps it loaded";
}

} // namespace
