#include "Shared/Utils/platform/DecimalNumbers.h"

#include <charconv>
#include <system_error>

namespace Nvr::Platform {

DecimalResult ReadDecimal(std::string_view text, double& value) {
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        return DecimalResult::OutOfRange;
    return result.ec == std::errc() ? DecimalResult::Number : DecimalResult::NoNumber;
}

std::size_t WriteFixed(double value, int places, std::span<char> room) {
    const auto result =
        std::to_chars(room.data(), room.data() + room.size(), value, std::chars_format::fixed, places);
    return static_cast<std::size_t>(result.ptr - room.data());
}

} // namespace Nvr::Platform
