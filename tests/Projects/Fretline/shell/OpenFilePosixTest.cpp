#include "tests/Projects/Fretline/shell/OpenFileTesting.h"

#include <csignal>
#include <set>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

using namespace OpenFileTesting;

TEST_F(OpenFileTest, TemporaryFilesAreForTheUserAlone) {
    constexpr std::filesystem::perms kOwnerOnly{0600};
    const mode_t formerMask = umask(0);
    int files = 0;
    Host.Answer = [&] {
        for (const auto& entry : std::filesystem::directory_iterator(Temp.Path())) {
            EXPECT_EQ(entry.status().permissions(), kOwnerOnly) << entry;
            ++files;
        }
        return 1;
    };
    EXPECT_TRUE(Open(Tabs.Write("a.tab", kTwoBars)));
    umask(formerMask);
    EXPECT_GT(files, 0);
}

TEST_F(OpenFileTest, FoldersMayHaveAnyBytesInTheirNames) {
    const std::filesystem::path odd = Tabs.Path() / "with blank \xC3\xBC \xFC#%20";
    std::filesystem::create_directory(odd);
    const std::string folder = odd.string();
    Record.ConfigFolder = folder.c_str();
    ASSERT_TRUE(Fretline::InitialisePlugin(Record, Info));
    setenv("TMPDIR", folder.c_str(), 1);
    std::set<std::string> scores;
    for (const char* const level : {"0", "2"}) {
        Tabs.Write(odd.filename().string() + "/FretlineOptions.txt",
                   std::string("\r\n{\r\n\tRhythmLevel \"") + level + "\"\r\n}\r\n");
        EXPECT_TRUE(Open(Tabs.Write(odd.filename().string() + "/\xE4 b%.tab", kTwoBars)));
        EXPECT_EQ(Host.Calls, kCallsOfTwoBars);
        EXPECT_EQ(std::filesystem::path(Host.LoadedPath).parent_path(), odd);
        scores.insert(Host.LoadedBytes);
    }
    EXPECT_EQ(scores.size(), 2U) << "the options were read";
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(odd), {}), 2) << "tab and options";
}

// No file that this process writes may grow beyond a size, as on a disk that is full.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytesLeft) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_Former);
        const rlimit limit{bytesLeft, m_Former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_Former);
        std::signal(SIGXFSZ, SIG_DFL);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_Former{};
};

TEST_F(OpenFileTest, OnAFullDiskTheHostFindsNoScore) {
    ExpectTheUsualScore();
    const std::string tab = Tabs.Write("a.tab", kTwoBars);
    {
        const FullDisk disk(1000);
        EXPECT_TRUE(Open(tab));
    }
    EXPECT_EQ(Host.Calls, kCallsOfTwoBars) << "a failed write is not told apart";
    EXPECT_TRUE(Host.LoadedBytes.empty());
    ExpectTheUsualScore();
}

} // namespace
