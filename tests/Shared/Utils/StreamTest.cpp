#include "Shared/Utils/CStream.h"
#include "Shared/Utils/FileStream.h"
#include "tests/Shared/Utils/FilesTesting.h"

#include <array>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
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

class HostLocale {
public:
    HostLocale() : m_Former(std::locale::global(std::locale(std::locale::classic(), new CommaNumbers))) {}
    ~HostLocale() { std::locale::global(m_Former); }
    HostLocale(const HostLocale&) = delete;
    HostLocale& operator=(const HostLocale&) = delete;

private:
    std::locale m_Former;
};

std::string Written(const std::function<void(OutStream&)>& write) {
    std::ostringstream target;
    COutStream stream(target);
    write(stream);
    return target.str();
}

std::string Utf16Bytes(const char16_t* text, std::size_t units) {
    std::string bytes(units * sizeof(char16_t), '\0');
    std::memcpy(bytes.data(), text, bytes.size());
    return bytes;
}

TEST(COutStream, WritesEachTypeAsTheSameTextInEveryLocale) {
    const HostLocale locale;
    const struct {
        std::function<void(OutStream&)> Write;
        std::string Expected;
        const char* Why;
    } rows[] = {
        {[](OutStream& s) { s << 0.65F; }, "0.65", "a float has a point and no padding"},
        {[](OutStream& s) { s << 1234567.0F; }, "1.23457e+06", "six digits"},
        {[](OutStream& s) { s << std::numeric_limits<unsigned>::max(); }, "4294967295", "unsigned int"},
        {[](OutStream& s) { s << 1234567UL; }, "1234567", "no grouping"},
        {[](OutStream& s) { s << -1234567L; }, "-1234567", "long"},
        {[](OutStream& s) { s << std::numeric_limits<int>::min(); }, "-2147483648", "int"},
        {[](OutStream& s) { s << static_cast<unsigned short>(65535); }, "65535", "not a character"},
        {[](OutStream& s) { s << static_cast<short>(-32768); }, "-32768", "short"},
        {[](OutStream& s) { s << 'A' << static_cast<unsigned char>(0xE9) << static_cast<signed char>(-1); },
         "A\xE9\xFF", "three types of character, one byte each"},
        {[](OutStream& s) {
             s << "text\r\n"
               << "" << static_cast<const char*>(nullptr) << 'x';
         },
         "text\r\nx", "line ends stay, null writes nothing and fails nothing"},
        {[](OutStream& s) { s << u"a\u266F"; }, Utf16Bytes(u"a\u266F", 2), "raw code units, no terminator"},
        {[](OutStream& s) { s << static_cast<const char16_t*>(nullptr) << 1; }, "1", "null again"},
        {[](OutStream& s) { s.Write("a\0b", 3); }, std::string("a\0b", 3), "a zero is a byte"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Written(row.Write), row.Expected) << row.Why;
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

TEST(CInStream, ReadsNumbersAndCharacters) {
    const HostLocale locale;
    std::istringstream source("  123456 \n x rest");
    CInStream stream(source);
    unsigned long number = 0;
    unsigned char character = 0;
    stream >> number >> character;
    EXPECT_EQ(number, 123456UL);
    EXPECT_EQ(character, 'x');
    stream >> number;
    EXPECT_FALSE(stream.Good());
    EXPECT_FALSE(stream.Bad()) << "text in place of a number loses no bytes";
    stream.Clear();
    EXPECT_EQ(stream.Get(), 'r');
}

TEST(CInStream, EndShowsOnlyAfterAReadWentPastIt) {
    std::istringstream source("ab\xFF");
    CInStream stream(source);
    std::array<char, 8> buffer{'.', '.', '.', '.'};
    EXPECT_EQ(stream.Peek(), 'a');
    EXPECT_EQ(stream.Read(buffer.data(), 2), 2U);
    EXPECT_EQ(stream.Get(), 0xFF) << "not taken for the end";
    EXPECT_EQ(stream.LastReadCount(), 1U);
    EXPECT_TRUE(stream.Good());
    EXPECT_FALSE(stream.Eof());
    unsigned char byte = 'k';
    EXPECT_FALSE(stream.Get(byte));
    EXPECT_EQ(byte, 'k');
    EXPECT_EQ(stream.Get(), -1);
    EXPECT_EQ(stream.LastReadCount(), 0U);
    EXPECT_TRUE(stream.Eof());
    EXPECT_FALSE(stream.Good());
    EXPECT_EQ(buffer[2], '.');
}

TEST(CInStream, GoesBackAfterAReadThatWasCutShort) {
    std::istringstream source("A");
    CInStream stream(source);
    std::array<char, 2> buffer{};
    EXPECT_EQ(stream.Read(buffer.data(), buffer.size()), 1U);
    EXPECT_TRUE(stream.Eof());
    EXPECT_EQ(stream.Tell(), 1);
    stream.Seek(0);
    EXPECT_TRUE(stream.Good());
    EXPECT_EQ(stream.Get(), 'A');
    stream.Seek(-1, SeekDirection::Current);
    EXPECT_EQ(stream.Tell(), 0);
    stream.Seek(0, SeekDirection::End);
    EXPECT_EQ(stream.Tell(), 1) << "how the size is learnt";
    stream.Seek(-5, SeekDirection::End);
    EXPECT_FALSE(stream.Good());
}

TEST(FileStream, BytesComeBackUnchangedUnderAnyName) {
    const Scratch scratch;
    std::string bytes("line\r\nnext\n\r\x1A\0\xFF", 15);
    for (const char* const name : {"plain.txt", "with blank.txt",
                                   "Gr\xC3\xBC\xC3\x9F"
                                   "e.txt",
                                   "\xFC\xE9 latin", "50%20#?.tab"}) {
        {
            OutFileStream out(scratch.PathText(name), kOpenOutput | kOpenBinary);
            ASSERT_TRUE(out.Good()) << name;
            out.Write(bytes.data(), bytes.size());
            EXPECT_TRUE(out.Close()) << name;
        }
        InFileStream in(scratch.PathText(name), kOpenInput | kOpenBinary);
        ASSERT_TRUE(in.Good()) << name;
        std::string back(100, '.');
        back.resize(in.Read(back.data(), back.size()));
        EXPECT_EQ(back, bytes) << name;
        EXPECT_TRUE(std::filesystem::exists(scratch.Path(name))) << name;
    }
}

TEST(FileStream, NewOutputReplacesAnOldFile) {
    const Scratch scratch;
    const std::string path = scratch.Write("old.txt", "a long old text");
    {
        OutFileStream out(String(path), 34);
        out << "new";
    }
    EXPECT_EQ(ReadAll(path), "new") << "written at the latest when the object goes";
}

TEST(FileStream, WhatCannotBeOpenedIsNotGood) {
    const Scratch scratch;
    std::filesystem::create_directory(scratch.Path("folder"));
    EXPECT_FALSE(InFileStream(scratch.PathText("missing")).Good());
    EXPECT_FALSE(InFileStream(scratch.PathText("folder")).Good());
    EXPECT_FALSE(InFileStream(String()).Good());
    EXPECT_FALSE(OutFileStream(scratch.PathText("folder")).Good());
    EXPECT_FALSE(OutFileStream(scratch.PathText("missing/file")).Good());
    OutFileStream unopened(scratch.PathText("folder"));
    EXPECT_FALSE(unopened.Close());
    InFileStream missing(scratch.PathText("missing"));
    EXPECT_FALSE(missing.Seek(0).Good()) << "a seek does not make it good";
    EXPECT_EQ(missing.Get(), -1);
}

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

TEST(FileStream, FileIsSharedWithOthers) {
    const Scratch scratch;
    OutFileStream out(scratch.PathText("shared"));
    out << "abc";
    out.Flush();
    InFileStream in(scratch.PathText("shared"));
    EXPECT_EQ(in.Get(), 'a');
}

} // namespace
