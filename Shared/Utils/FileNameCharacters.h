#pragma once

#include "Shared/Utils/NvrString.h"

#include <string_view>

/// What can stand in the name of a file. The rule is the strictest of all platforms, and the same on each.
namespace Nvr {

/// Cannot stand in a file name on every platform.
inline constexpr std::string_view IllegalFileNameCharacters = "<>:\"/\\|*?";
/// The same, and those that trouble people who type the name.
inline constexpr std::string_view UnsafeFileNameCharacters = "<>:\"/\\|'()*?";

bool HasIllegalCharacters(const String& name);
/// Each illegal character becomes a blank.
String ReplaceIllegalCharacters(const String& name);
/// Each unsafe character becomes a blank.
String MakeSafeName(const String& name);

} // namespace Nvr
