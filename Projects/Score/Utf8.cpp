#include "Projects/Score/Utf8.h"

#include "Shared/Utils/platform/TextServices.h"

#include <algorithm>

namespace Score {

namespace {

constexpr unsigned char kFirstPrintable = 0x20;
constexpr unsigned char kDelete = 0x7F;

bool IsControl(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    // Five bytes of the code page stand for control characters of their number.
    constexpr std::string_view kUnassigned = "\x81\x8D\x8F\x90\x9D";
    return code < kFirstPrintable || code == kDelete || kUnassigned.find(byte) != std::string_view::npos;
}

} // namespace

std::string ToUtf8(std::string_view bytes) {
    std::string printable(bytes);
    std::replace_if(printable.begin(), printable.end(), IsControl, '?');
    return Nvr::Platform::ToUtf8(printable);
}

std::string Numbered(std::string_view text, long long number) {
    std::string numbered(text);
    numbered += std::to_string(number);
    return numbered;
}

} // namespace Score
