#include "Shared/Utils/PathSplitting.h"

#include <gtest/gtest.h>

namespace {

using namespace Nvr;

TEST(PathSplitting, SplitsAndJoinsAgain) {
    const struct {
        const char *Path, *Folder, *Name, *Extension;
    } rows[] = {
        {"/a b/c.d/song.v2.tab", "/a b/c.d/", "song.v2", ".tab"},
        {"/a.b/song", "/a.b/", "song", ""},
        {"/.tab", "/", "", ".tab"},
        {"/a/b.", "/a/", "b", "."},
        {"/a\\b.c", "/", "a\\b", ".c"},
        {"", "", "", ""},
    };
    for (const auto& row : rows) {
        String drive("x"), folder, name, extension;
        SplitPath(row.Path, drive, folder, name, extension);
        EXPECT_EQ(drive, "") << row.Path;
        EXPECT_EQ(folder, row.Folder) << row.Path;
        EXPECT_EQ(name, row.Name) << row.Path;
        EXPECT_EQ(extension, row.Extension) << row.Path;
        EXPECT_EQ(JoinPath(drive, folder, name, extension), row.Path);
    }
}

TEST(PathSplitting, JoinPutsInWhatIsMissing) {
    EXPECT_EQ(JoinPath("", "/config", "FretlineOptions", "txt"), "/config/FretlineOptions.txt");
    EXPECT_EQ(JoinPath("", "", "FretlineOptions", ""), "FretlineOptions");
    EXPECT_EQ(JoinPath("", "/", "a", "b"), "/a.b");
}

} // namespace
