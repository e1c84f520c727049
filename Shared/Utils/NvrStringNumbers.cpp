#include "Shared/Utils/NvrString.h"

#include "Shared/Utils/NumberText.h"

namespace Nvr {

namespace {

std::string_view WithoutTrailingZeros(std::string_view number) {
    if (number.find('.') == std::string_view::npos)
        return number;
    number = number.substr(0, number.find_last_not_of('0') + 1);
    if (number.back() == '.')
        number.remove_suffix(1);
    return number;
}

} // namespace

int String::ToInt() const {
    return ParseInt(View());
}

long String::ToLong() const {
    return ParseLong(View());
}

float String::ToFloat() const {
    return ParseFloat(View());
}

unsigned String::FromBinaryDigits() const {
    unsigned value = 0;
    for (const char* digit = CStr(); *digit == '0' || *digit == '1'; ++digit)
        value = value * 2 + (*digit == '1' ? 1U : 0U);
    return value;
}

String String::FromInt(std::int32_t value) {
    return String(IntegerText(value).View());
}

String String::FromUnsigned(std::uint32_t value) {
    return String(IntegerText(value).View());
}

String String::FromInt64(std::int64_t value) {
    return String(IntegerText(value).View());
}

String String::FromUnsigned64(std::uint64_t value) {
    return String(IntegerText(value).View());
}

String String::FromBool(bool value) {
    return value ? "1" : "0";
}

String String::FromFloat(double value, int decimals, bool trimZeros) {
    const std::string text = FormatFixed(value, decimals);
    return String(trimZeros ? WithoutTrailingZeros(text) : std::string_view(text));
}

} // namespace Nvr
