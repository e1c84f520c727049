#include "Projects/Fretline/shell/PluginState.h"

#include "Shared/Utils/Exceptions.h"
#include "tests/support/FakeHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <new>

namespace {

using Fretline::GetPluginState;

TEST(PluginState, TheFolderHasRoomFor511Bytes) {
    HostInitRecord record{};
    PluginInfoRecord info{};
    for (const std::size_t length : {5000U, 512U, 511U, 510U, 0U}) {
        const std::string folder(length, 'f');
        record.ConfigFolder = folder.c_str();
        ASSERT_TRUE(Fretline::InitialisePlugin(record, info));
        EXPECT_EQ(std::strlen(GetPluginState().ConfigFolder.data()), std::min<std::size_t>(length, 511))
            << length;
    }
    record.ConfigFolder = nullptr;
    ASSERT_TRUE(Fretline::InitialisePlugin(record, info));
    EXPECT_STREQ(GetPluginState().ConfigFolder.data(), "");
    Fretline::TerminatePlugin();
}

TEST(PluginState, ThreeWordsOfTheInfoRecordAreWritten) {
    struct Guarded {
        PluginInfoRecord Info;
        unsigned char After[64];
    };
    Guarded guarded;
    std::memset(&guarded, 0xA5, sizeof guarded);
    const HostInitRecord record{};
    ASSERT_TRUE(Fretline::InitialisePlugin(record, guarded.Info));
    const auto isUntouched = [](unsigned char byte) { return byte == 0xA5; };
    EXPECT_TRUE(
        std::all_of(std::begin(guarded.Info.NotTouched), std::end(guarded.Info.NotTouched), isUntouched));
    EXPECT_TRUE(std::all_of(std::begin(guarded.After), std::end(guarded.After), isUntouched));
    EXPECT_EQ(guarded.Info.Eight, 8);
    ASSERT_EQ(guarded.Info.FileTypeCount, 3);
    const char* const rows[][2] = {{"ASCII Tab", "tab"}, {"ASCII Bass Tab", "btab"}, {"ASCII Chord", "crd"}};
    for (std::size_t row = 0; row < 3; ++row) {
        EXPECT_STREQ(guarded.Info.FileTypes[row].Description, rows[row][0]);
        EXPECT_STREQ(guarded.Info.FileTypes[row].Extension, rows[row][1]);
        EXPECT_STREQ(guarded.Info.FileTypes[row].TypeCode, "TEXT");
    }
    Fretline::TerminatePlugin();
}

TEST(PluginState, FromTheStartOnFailedAllocationsRaiseTheirOwnException) {
    std::new_handler const before = std::get_new_handler();
    const HostInitRecord record{};
    PluginInfoRecord info{};
    ASSERT_TRUE(Fretline::InitialisePlugin(record, info));
    const std::new_handler handler = std::get_new_handler();
    ASSERT_NE(handler, nullptr);
    EXPECT_THROW(handler(), Nvr::OutOfMemoryException);
    Fretline::TerminatePlugin();
    EXPECT_EQ(std::get_new_handler(), before) << "the code behind it may be gone soon";
}

} // namespace
