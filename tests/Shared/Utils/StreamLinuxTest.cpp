#include "Shared/Utils/FileStream.h"
#include "tests/Shared/Utils/FilesTesting.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

using namespace Nvr;

TEST(FileStream, FullDiskShowsAfterTheFlush) {
    OutFileStream small("/dev/full");
    ASSERT_TRUE(small.Good());
    small << "x";
    small.Flush();
    EXPECT_FALSE(small.Good());
    EXPECT_TRUE(small.Bad());
    OutFileStream closed("/dev/full");
    closed << "x";
    EXPECT_FALSE(closed.Close());
    OutFileStream large("/dev/full");
    const std::string block(1000, 'x');
    for (int i = 0; i < 1000; ++i)
        large.Write(block.data(), block.size());
    EXPECT_FALSE(large.Good());
}

TEST(FileStream, WhatMayNeverEndIsNotReadFrom) {
    const FilesTesting::Scratch scratch;
    ASSERT_EQ(mkfifo(scratch.Path("pipe").c_str(), 0600), 0);
    for (const std::string& path : {scratch.Path("pipe"), std::string("/dev/zero")})
        EXPECT_FALSE(InFileStream(String(path)).Good()) << path;
}

} // namespace
