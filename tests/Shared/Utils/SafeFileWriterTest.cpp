#include "Shared/Utils/SafeFileWriter.h"
#include "tests/Shared/Utils/FilesTesting.h"

#include <gtest/gtest.h>

namespace {

using namespace Nvr;
using namespace FilesTesting;

TEST(SafeFileWriter, NewFileTakesThePlaceAtTheEnd) {
    const Scratch scratch;
    const std::string path = scratch.Write("options.txt", "old");
    SafeFileWriter writer{String(path)};
    writer.Stream() << "new";
    writer.Stream().Flush();
    EXPECT_EQ(ReadAll(path), "old");
    EXPECT_TRUE(writer.Commit());
    EXPECT_EQ(ReadAll(path), "new");
    EXPECT_EQ(scratch.CountEntries(), 1U);
    EXPECT_FALSE(writer.Commit()) << "only once";
}

TEST(SafeFileWriter, FailureIsToldAndLeavesNothing) {
    const Scratch scratch;
    SafeFileWriter(scratch.PathText("a")).Stream() << "not committed";
    EXPECT_EQ(scratch.CountEntries(), 0U);
    std::filesystem::create_directory(scratch.Path("folder"));
    for (const std::string& path : {scratch.Path("folder"), scratch.Path("none/a"), std::string()})
        EXPECT_FALSE(WriteSafely(path, "x")) << path;
    EXPECT_EQ(scratch.CountEntries(), 1U);
}

} // namespace
