#pragma once

#include <string>

namespace Nvr::Platform {

/// Shows `text` (plain, in the system code page, as `title`) in a modal box with an information icon and
/// waits until the user has acknowledged it. Without a desktop, or without a program on it that can show a
/// box, the text goes to the standard error stream after the title, and nobody waits. True when the user was
/// asked.
bool ShowInformationBox(const std::string& title, const std::string& text);

} // namespace Nvr::Platform
