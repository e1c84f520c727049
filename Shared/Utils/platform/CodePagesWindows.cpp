#include "Shared/Utils/platform/TextServices.h"

#include "Shared/Utils/platform/WindowsFile.h"

#include <limits>

namespace Nvr::Platform {

namespace {

constexpr UINT kMacintoshRoman = 10000;

static_assert(sizeof(wchar_t) == sizeof(char16_t));

// The services count in int.
bool IsTooLong(std::size_t size) {
    return size > static_cast<std::size_t>(std::numeric_limits<int>::max());
}

int ToWide(UINT page, std::string_view text, char16_t* units, std::size_t room) {
    return MultiByteToWideChar(page, 0, text.data(), static_cast<int>(text.size()),
                               reinterpret_cast<wchar_t*>(units), static_cast<int>(room));
}

// What does not fit becomes '?' and nothing that merely looks alike. UTF-8, into which everything fits, takes
// neither setting.
int ToBytes(UINT page, std::u16string_view units, char* text, std::size_t room) {
    const bool isUtf8 = page == CP_UTF8 || (page == CP_ACP && GetACP() == CP_UTF8);
    return WideCharToMultiByte(page, isUtf8 ? 0 : WC_NO_BEST_FIT_CHARS,
                               reinterpret_cast<const wchar_t*>(units.data()), static_cast<int>(units.size()),
                               text, static_cast<int>(room), isUtf8 ? nullptr : "?", nullptr);
}

bool ConvertToBytes(UINT page, std::u16string_view units, std::string& text) {
    // Mostly a byte a unit; when that is not enough the system is asked for the size.
    text.resize(units.size());
    if (units.empty())
        return true;
    if (IsTooLong(units.size())) {
        text.clear();
        return false;
    }
    int length = ToBytes(page, units, text.data(), text.size());
    if (length == 0 && GetLastError() == ERROR_INSUFFICIENT_BUFFER) {
        text.resize(static_cast<std::size_t>(ToBytes(page, units, nullptr, 0)));
        length = ToBytes(page, units, text.data(), text.size());
    }
    text.resize(static_cast<std::size_t>(length));
    return length != 0;
}

} // namespace

bool ToUtf16(CodePage page, std::string_view text, std::u16string& units) {
    // Never more units than bytes.
    units.resize(text.size());
    if (text.empty())
        return true;
    const UINT number = page == CodePage::Macintosh ? kMacintoshRoman : CP_ACP;
    const int length = IsTooLong(text.size()) ? 0 : ToWide(number, text, units.data(), units.size());
    units.resize(static_cast<std::size_t>(length));
    return length != 0;
}

bool FromUtf16(std::u16string_view units, std::string& text) {
    return ConvertToBytes(CP_ACP, units, text);
}

std::string ToUtf8(std::string_view text) {
    std::u16string units;
    std::string result;
    if (ToUtf16(CodePage::System, text, units))
        static_cast<void>(ConvertToBytes(CP_UTF8, units, result));
    return result;
}

} // namespace Nvr::Platform
