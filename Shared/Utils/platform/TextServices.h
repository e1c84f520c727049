#pragma once

#include <string>
#include <string_view>

/// What the platform knows about text in the system code page: order, case, kinds of characters, and the way
/// to UTF-16 and back. One source a platform. Where the platform leaves the choice, as POSIX does, the system
/// code page is Windows-1252 whatever the locale, and the five bytes that it leaves unassigned stand for the
/// control characters of the same number, so that each of the 256 bytes survives the way there and back.
namespace Nvr::Platform {

/// Negative, 0 or positive as `left` comes before, is, or comes after `right` in the order of a dictionary:
/// punctuation, digits, letters; letters by their base letter first, then by accent, then the small letter
/// before the capital. 0 only for equal bytes.
int Collate(std::string_view left, std::string_view right);
/// The same order without the last step: texts that differ in case alone give 0.
int CollateIgnoringCase(std::string_view left, std::string_view right);

/// The other case of a letter of the code page, as far as the code page has it; every other byte as it is.
char ToUpper(char byte);
char ToLower(char byte);

/// "0" to "9".
bool IsDigit(char byte);
/// A letter of the code page, accented ones included.
bool IsLetter(char byte);
bool IsAlphanumeric(char byte);
/// Space, tab, line feed, vertical tab, form feed, carriage return, and the no-break space.
bool IsSpace(char byte);

/// The code pages that stored 8-bit text comes in.
enum class CodePage { System, Macintosh };

/// Replaces `units` by `text` as UTF-16 code units in the byte order of the machine; zero bytes are converted
/// like any other. Keeps the capacity of `units`. False, with `units` empty, when the platform does not know
/// the page; never so on POSIX.
[[nodiscard]] bool ToUtf16(CodePage page, std::string_view text, std::u16string& units);

/// Replaces `text` by the code units in the system code page; '?' stands for each unit that it does not hold.
/// Keeps the capacity of `text`. False, with `text` empty, when the platform cannot convert; never so on
/// POSIX.
[[nodiscard]] bool FromUtf16(std::u16string_view units, std::string& text);

/// `text` of the system code page in UTF-8, which is what the system's own programs and terminals expect.
std::string ToUtf8(std::string_view text);

} // namespace Nvr::Platform
