#include "Shared/Utils/platform/TextServices.h"

#include "Shared/Utils/AsciiChars.h"
#include "Shared/Utils/platform/WindowsFile.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace Nvr::Platform {

namespace {

constexpr std::size_t kBytes = 256;

constexpr unsigned char ToByte(char c) {
    return static_cast<unsigned char>(c);
}

using ByteTable = std::array<char, kBytes>;
using KindTable = std::array<WORD, kBytes>;

// The services convert a character in place of a text when its number is given for the address.
char Converted(LPSTR(WINAPI* service)(LPSTR), char c) {
    return static_cast<char>(
        reinterpret_cast<ULONG_PTR>(service(reinterpret_cast<LPSTR>(ULONG_PTR{ToByte(c)}))));
}

// Only cases from which there is a way back: the capital of some letters is not on the page.
ByteTable MakeCaseTable(LPSTR(WINAPI* there)(LPSTR), LPSTR(WINAPI* back)(LPSTR)) {
    ByteTable table{};
    for (unsigned byte = 0; byte < kBytes; ++byte) {
        const char c = static_cast<char>(byte);
        const char other = Converted(there, c);
        table[byte] = Converted(back, other) == Converted(back, c) ? other : c;
    }
    return table;
}

const ByteTable& LowerTable() {
    static const ByteTable table = MakeCaseTable(CharLowerA, CharUpperA);
    return table;
}

const ByteTable& UpperTable() {
    static const ByteTable table = MakeCaseTable(CharUpperA, CharLowerA);
    return table;
}

KindTable MakeKindTable() {
    KindTable table{};
    for (unsigned byte = 0; byte < kBytes; ++byte) {
        const char c = static_cast<char>(byte);
        if (GetStringTypeA(LOCALE_USER_DEFAULT, CT_CTYPE1, &c, 1, &table[byte]) == FALSE)
            table[byte] = 0;
    }
    return table;
}

bool IsOfKind(char c, WORD kind) {
    static const KindTable table = MakeKindTable();
    return (table[ToByte(c)] & kind) != 0;
}

// 0 too where texts differ in what the order passes over, such as control characters.
int CompareByLocale(std::string_view left, std::string_view right, DWORD flags) {
    if (left.empty() || right.empty())
        return 0;
    const int order =
        CompareStringA(LOCALE_USER_DEFAULT, flags | SORT_STRINGSORT, left.data(),
                       static_cast<int>(left.size()), right.data(), static_cast<int>(right.size()));
    return order == 0 ? 0 : order - CSTR_EQUAL;
}

int CompareLowered(std::string_view left, std::string_view right) {
    const ByteTable& lower = LowerTable();
    const std::size_t shared = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < shared; ++i) {
        const int difference = int{ToByte(lower[ToByte(left[i])])} - int{ToByte(lower[ToByte(right[i])])};
        if (difference != 0)
            return difference;
    }
    return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

} // namespace

int CollateIgnoringCase(std::string_view left, std::string_view right) {
    const int byBytes = CompareLowered(left, right);
    if (byBytes == 0)
        return 0;
    const int byLocale = CompareByLocale(left, right, NORM_IGNORECASE);
    return byLocale != 0 ? byLocale : byBytes;
}

int Collate(std::string_view left, std::string_view right) {
    const int byLocale = CompareByLocale(left, right, 0);
    return byLocale != 0 ? byLocale : left.compare(right);
}

char ToUpper(char byte) {
    return UpperTable()[ToByte(byte)];
}

char ToLower(char byte) {
    return LowerTable()[ToByte(byte)];
}

bool IsDigit(char byte) {
    // The system takes small raised digits for digits too.
    return Ascii::IsDigit(byte);
}

bool IsLetter(char byte) {
    return IsOfKind(byte, C1_ALPHA);
}

bool IsAlphanumeric(char byte) {
    return IsDigit(byte) || IsLetter(byte);
}

bool IsSpace(char byte) {
    return IsOfKind(byte, C1_SPACE);
}

} // namespace Nvr::Platform
