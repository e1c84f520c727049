#include "Shared/Utils/ByteBuffer.h"
#include "Shared/Utils/CStream.h"
#include "Shared/Utils/FileStream.h"
#include "tests/Shared/Utils/FilesTesting.h"

#include <array>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <locale>
#include <sstream>

namespace {

using namespace Nvr;
using namespace FilesTesting;

// Groups digits and writes a decimal comma, as a host's locale may.
class CommaNumbers : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

std::string Written(const std::function<void(OutStream&)>& write) {
    std::ostringstream target;
    COutStream stream(target);
    write(stream);
    return target.str();
}

TEST(COutStream, WritesEachTypeAsTheSameTextInEveryLocale) {
    const std::locale former = std::locale::global({std::locale::classic(), new CommaNumbers});
    EXPECT_EQ(Written([](OutStream& stream) {
                  stream << 0.65F << '|' << 1234567.0F << '|' << 4294967295U << '|' << -1234567L << '|'
                         << static_cast<unsigned short>(65535) << '|' << static_cast<short>(-32768) << '|'
                         << static_cast<unsigned char>(0xE9) << static_cast<signed char>(-1) << "\r\n";
              }),
              "0.65|1.23457e+06|4294967295|-1234567|65535|-32768|\xE9\xFF\r\n");
    std::locale::global(former);
    const std::string units = Written([](OutStream& stream) { stream << u"a\u266F"; });
    EXPECT_EQ(units.size(), 4U);
    EXPECT_EQ(std::memcmp(units.data(), u"a\u266F", 4), 0) << "raw code units, no terminator";
    EXPECT_EQ(Written([](OutStream& stream) {
                  stream << static_cast<const char*>(nullptr) << static_cast<const char16_t*>(nullptr) << 1;
                  stream.Write("a\0b", 3);
              }),
              std::string("1a\0b", 4))
        << "null writes nothing and fails nothing, a zero is a byte";
}

TEST(COutStream, WritesOverWhereItSeeks) {
    EXPECT_EQ(Written([](OutStream& stream) {
                  stream << "0123456789";
                  EXPECT_EQ(stream.Tell(), 10);
                  stream.Seek(2).Write("x", 1);
                  stream.Seek(2, SeekDirection::Current) << 'y';
                  stream.Seek(-1, SeekDirection::End) << "zz";
                  EXPECT_EQ(stream.Tell(), 11);
                  EXPECT_TRUE(stream.Good());
                  EXPECT_FALSE(stream.Seek(-1).Good());
              }),
              "01x34y678zz");
}

TEST(CInStream, EndShowsOnlyAfterAReadWentPastItAndASeekEndsIt) {
    std::istringstream source("ab\xFF");
    CInStream stream(source);
    std::array<char, 8> buffer{};
    EXPECT_EQ(stream.Peek(), 'a');
    EXPECT_EQ(stream.Read(buffer.data(), 2), 2U);
    EXPECT_EQ(stream.Get(), 0xFF) << "not taken for the end";
    EXPECT_TRUE(stream.Good() && !stream.Eof());
    unsigned char byte = 'k';
    EXPECT_FALSE(stream.Get(byte));
    EXPECT_EQ(byte, 'k');
    EXPECT_EQ(stream.LastReadCount(), 0U);
    EXPECT_TRUE(stream.Eof() && !stream.Good());
    stream.Seek(1);
    EXPECT_EQ(stream.Read(buffer.data(), 8), 2U);
    EXPECT_EQ(stream.Tell(), 3) << "also after a read that was cut short";
    stream.Seek(-2, SeekDirection::Current);
    EXPECT_TRUE(stream.Good());
    EXPECT_EQ(stream.Get(), 'b');
    EXPECT_EQ(stream.Seek(0, SeekDirection::End).Tell(), 3) << "how the size is learnt";
    EXPECT_FALSE(stream.Seek(-5, SeekDirection::End).Good());
}

// Tells its positions and cannot seek, as a source that is unpacked while it is read.
class OneWaySource : public std::stringbuf {
public:
    using std::stringbuf::stringbuf;

protected:
    pos_type seekoff(off_type offset, std::ios::seekdir direction, std::ios::openmode mode) override {
        const bool isTell = offset == 0 && direction == std::ios::cur;
        return isTell ? std::stringbuf::seekoff(offset, direction, mode) : pos_type(off_type(-1));
    }
    pos_type seekpos(pos_type, std::ios::openmode) override { return pos_type(off_type(-1)); }
};

TEST(ByteBuffer, TakesAStreamFromItsStartOrAsFarAsItCanBeRead) {
    const std::string text = "xy" + std::string(10'000, 'z');
    std::stringbuf seekable(text);
    OneWaySource oneWay(text);
    const struct {
        std::streambuf& Source;
        std::string Expected;
    } rows[] = {{seekable, text}, {oneWay, text.substr(1)}};
    for (const auto& row : rows) {
        std::istream source(&row.Source);
        CInStream stream(source);
        stream.Get();
        ByteBuffer buffer;
        buffer.AppendStream(stream);
        EXPECT_EQ(buffer.View(), row.Expected);
        EXPECT_TRUE(buffer.AppendStream(stream, 1)) << "nothing is left";
    }
}

TEST(CInStream, ReadsNumbersAndCharactersPastWhiteSpace) {
    std::istringstream source(" 4294967295 \r\n xz");
    CInStream stream(source);
    unsigned long number = 0;
    unsigned char character = 0, next = 0;
    stream >> number >> character;
    EXPECT_TRUE(stream.Get(next));
    EXPECT_EQ(number, 4294967295UL);
    EXPECT_EQ(character, 'x');
    EXPECT_EQ(next, 'z');
    stream >> character;
    EXPECT_EQ(character, 'x') << "nothing is left";
}

TEST(FileStream, BytesComeBackUnchangedUnderAnyName) {
    const Scratch scratch;
    std::string bytes("line\r\nnext\n\r\x1A\0\xFF", 15);
    scratch.Write("plain.txt", "an old text that is longer than the new one");
    for (const char* const name : {"plain.txt", "50%20#.tab", "Gr\xC3\xBC\xC3\x9F \xFC\xE9 latin"}) {
        {
            OutFileStream out(scratch.PathText(name), kOpenOutput | kOpenBinary);
            ASSERT_TRUE(out.Good()) << name;
            out.Write(bytes.data(), bytes.size());
            EXPECT_TRUE(out.Close()) << name;
        }
        InFileStream in(scratch.PathText(name), kOpenInput | kOpenOutput | kOpenBinary);
        ASSERT_TRUE(in.Good()) << name;
        std::string back(100, '.');
        back.resize(in.Read(back.data(), back.size()));
        EXPECT_EQ(back, bytes) << name;
        EXPECT_EQ(ReadAll(scratch.Path(name)), bytes) << name;
    }
}

TEST(FileStream, WhatCannotBeOpenedIsNotGood) {
    const Scratch scratch;
    std::filesystem::create_directory(scratch.Path("folder"));
    EXPECT_FALSE(InFileStream(scratch.PathText("missing")).Good());
    EXPECT_FALSE(InFileStream(scratch.PathText("folder")).Good());
    EXPECT_FALSE(OutFileStream(scratch.PathText("folder")).Good());
    EXPECT_FALSE(OutFileStream(scratch.PathText("missing/file")).Good());
    InFileStream missing(scratch.PathText("missing"));
    EXPECT_FALSE(missing.Seek(0).Good()) << "a seek does not make it good";
    EXPECT_EQ(missing.Get(), -1);
}

} // namespace
