#include "Projects/ReferenceHost/ScoreFile.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

using ReferenceHost::ScoreFile;

namespace {
namespace fs = std::filesystem;
}

TEST(ScoreFile, TakesTheTargetsPlaceWholeOrNotAtAll) {
    const TestSupport::ScratchFolder folder;
    const fs::path target = folder.Write("song.mid", "former");
    {
        ScoreFile file(target);
        file.Write("new, ");
        EXPECT_EQ("former", folder.Read("song.mid"));
        file.Write("and long");
        EXPECT_EQ("", file.Finish());
    }
    EXPECT_EQ("new, and long", folder.Read("song.mid"));
    ScoreFile(target).Write("never finished");
    EXPECT_EQ("new, and long", folder.Read("song.mid"));
    EXPECT_EQ(1U, folder.CountEntries());
    const fs::path inNewFolder = folder.Path() / "a" / "b" / "song.mid";
    EXPECT_EQ("", ScoreFile(inNewFolder).Finish());
    EXPECT_TRUE(fs::is_empty(inNewFolder));
}

TEST(ScoreFile, SaysWhatIsWrong) {
    const TestSupport::ScratchFolder folder;
    folder.Write("file", "");
    const struct {
        fs::path Target;
        const char* Says;
    } rows[] = {
        {folder.Path(), "Is a directory"},
        {folder.Path() / "file" / "song.mid", "Not a directory"},
        {"/dev/full", "No space left on device"},
        {"/dev/null", nullptr},
    };
    for (const auto& [target, says] : rows) {
        ScoreFile file(target);
        file.Write("bytes");
        file.Write("more");
        EXPECT_EQ(says == nullptr ? "" : target.string() + " cannot be written: " + says, file.Finish());
    }
    EXPECT_EQ(1U, folder.CountEntries());
}
