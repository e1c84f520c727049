#include "Shared/Utils/SafeFileWriter.h"
#include "tests/Shared/Utils/FilesTesting.h"
#include "tests/support/PosixDisk.h"
#include "tests/support/PosixRights.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

using namespace Nvr;
using namespace FilesTesting;
using namespace TestSupport;

TEST(SafeFileWriter, NewFileGetsTheUsualRightsAndThoseOfAFormerOneStay) {
    const Scratch scratch;
    const mode_t former = umask(027);
    EXPECT_TRUE(WriteSafely(scratch.Path("a b\xFC"), "x"));
    umask(former);
    EXPECT_EQ(RightsOf(scratch.Path("a b\xFC")), 0640U);
    EXPECT_TRUE(WriteSafely(scratch.Path("a b\xFC"), "y"));
    EXPECT_EQ(RightsOf(scratch.Path("a b\xFC")), 0640U);
    EXPECT_FALSE(WriteSafely("/dev/full", "x"));
}

TEST(SafeFileWriter, DiskThatFillsUpLosesNothing) {
    const Scratch scratch;
    const std::string path = scratch.Write("a", "old");
    const std::string text(200'000, 'x');
    {
        const FullDisk disk(100'000);
        EXPECT_FALSE(WriteSafely(path, text.c_str()));
    }
    EXPECT_EQ(ReadAll(path), "old");
    EXPECT_EQ(scratch.CountEntries(), 1U);
}

TEST(SafeFileWriter, WritesWhatALinkLeadsTo) {
    const Scratch scratch;
    const Scratch elsewhere;
    elsewhere.Write("real", "old");
    std::filesystem::create_symlink(elsewhere.Path("real"), scratch.Path("absolute"));
    std::filesystem::create_symlink("absolute", scratch.Path("relative"));
    std::filesystem::create_hard_link(elsewhere.Path("real"), scratch.Path("second name"));
    EXPECT_TRUE(WriteSafely(scratch.Path("relative"), "new"));
    EXPECT_EQ(ReadAll(elsewhere.Path("real")), "new");
    EXPECT_EQ(ReadAll(scratch.Path("second name")), "new") << "a file with two names keeps both";
    EXPECT_TRUE(std::filesystem::is_symlink(scratch.Path("relative")) &&
                std::filesystem::is_symlink(scratch.Path("absolute")));
    std::filesystem::create_symlink(elsewhere.Path("not yet"), scratch.Path("dangling"));
    EXPECT_TRUE(WriteSafely(scratch.Path("dangling"), "made"));
    EXPECT_EQ(ReadAll(elsewhere.Path("not yet")), "made");
    std::filesystem::create_symlink("loop", scratch.Path("loop"));
    EXPECT_FALSE(WriteSafely(scratch.Path("loop"), "x"));
    EXPECT_EQ(elsewhere.CountEntries(), 2U);
    EXPECT_EQ(scratch.CountEntries(), 5U);
}

TEST(SafeFileWriter, WritesInPlaceWhereTheFolderTakesNoFile) {
    const Scratch scratch;
    const std::string writable = scratch.Write("writable", "a long old text");
    const std::string locked = scratch.Write("locked", "old");
    chmod(writable.c_str(), 0666);
    chmod(locked.c_str(), 0444);
    chmod(scratch.Path().c_str(), 0555);
    {
        const AsNobody nobody;
        if (nobody.Failed())
            GTEST_SKIP() << "cannot give up rights here";
        EXPECT_TRUE(WriteSafely(writable, "new"));
        EXPECT_FALSE(WriteSafely(locked, "new"));
        EXPECT_FALSE(WriteSafely(scratch.Path("other"), "new"));
    }
    chmod(scratch.Path().c_str(), 0777);
    EXPECT_EQ(ReadAll(writable), "new");
    {
        const AsNobody nobody;
        EXPECT_FALSE(WriteSafely(locked, "new")) << "not replaced either, where the folder would allow it";
    }
    EXPECT_EQ(ReadAll(locked), "old");
}

} // namespace
