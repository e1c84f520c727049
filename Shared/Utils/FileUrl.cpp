#include "Shared/Utils/FileUrl.h"

#include "Shared/Utils/AsciiChars.h"

namespace Nvr {

namespace {

constexpr std::string_view kPunctuationInUrlPaths = "/-._~!$&'()*+,;=:@";
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

bool StandsForItself(char c) {
    return Ascii::IsAlnum(c) || kPunctuationInUrlPaths.find(c) != std::string_view::npos;
}

} // namespace

std::string EscapeUrlPath(std::string_view path) {
    std::string url;
    url.reserve(path.size());
    for (const char c : path) {
        if (StandsForItself(c)) {
            url += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        url += '%';
        url += kHexDigits[byte >> 4U];
        url += kHexDigits[byte & 0xFU];
    }
    return url;
}

std::string UnescapeUrl(std::string_view url) {
    std::string text;
    text.reserve(url.size());
    for (std::size_t i = 0; i < url.size(); ++i) {
        const bool hasDigits = url[i] == '%' && i + 2 < url.size();
        const int high = hasDigits ? Ascii::HexValue(url[i + 1]) : -1;
        const int low = hasDigits ? Ascii::HexValue(url[i + 2]) : -1;
        if (high < 0 || low < 0) {
            text += url[i];
            continue;
        }
        text += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return text;
}

} // namespace Nvr
