#include "Shared/Utils/platform/DecimalNumbers.h"

#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace Nvr::Platform {

namespace {

// The C library reads hexadecimal digits too: "0x1" is the number 0 here.
bool LooksHexadecimal(std::string_view text) {
    return text.size() > 1 && text[0] == '0' && Ascii::ToLower(text[1]) == 'x';
}

} // namespace

// There is one locale on this platform, and its point is a point. The C library rounds exactly, both ways.
DecimalResult ReadDecimal(std::string_view text, double& value) {
    const std::string copy(LooksHexadecimal(text) ? text.substr(0, 1) : text);
    if (copy.empty() || Ascii::IsSpace(copy.front()) || copy.front() == '+')
        return DecimalResult::NoNumber;
    char* end = nullptr;
    errno = 0;
    const double read = std::strtod(copy.c_str(), &end);
    if (end == copy.c_str())
        return DecimalResult::NoNumber;
    // It says the same of a number that only loses digits by being small.
    if (errno == ERANGE && (read == 0 || std::isinf(read)))
        return DecimalResult::OutOfRange;
    value = read;
    return DecimalResult::Number;
}

std::size_t WriteFixed(double value, int places, std::span<char> room) {
    // It ends what it writes with a zero byte, for which there may be no room.
    std::vector<char> text(room.size() + 1);
    const int length = std::snprintf(text.data(), text.size(), "%.*f", places, value);
    const std::size_t written = length < 0 ? 0 : static_cast<std::size_t>(length);
    if (written > room.size())
        return 0;
    std::copy_n(text.begin(), written, room.begin());
    return written;
}

} // namespace Nvr::Platform
