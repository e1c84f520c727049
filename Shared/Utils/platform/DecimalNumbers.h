#pragma once

#include <cstddef>
#include <span>
#include <string_view>

/// Numbers with a decimal point, as text and back, whatever the locale. One source a C++ library. Both ways
/// are exact: the nearest double, and the nearest text of so many places.
namespace Nvr::Platform {

enum class DecimalResult {
    Number,
    NoNumber,
    /// Too large for a double, or too small.
    OutOfRange
};

/// Reads the longest number that `text` begins with: digits with a point among or before or after them, then
/// an exponent if it is complete; or "inf", "infinity" or "nan" in any case. `value` is as it was unless the
/// result is a number. `text` begins with neither blank nor sign.
DecimalResult ReadDecimal(std::string_view text, double& value);

/// Writes `value` with `places` digits after the point, which is left out for 0. Gives the length. `room`
/// must be large enough; nothing is put after the last digit that is meant.
std::size_t WriteFixed(double value, int places, std::span<char> room);

} // namespace Nvr::Platform
