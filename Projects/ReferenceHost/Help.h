#pragma once

#include <string>

namespace ReferenceHost {

/// The help, for people. What it says of formats comes from the table of formats.
std::string HelpText();
std::string VersionText();

/// The names of all formats, separated by commas.
std::string FormatNames();

} // namespace ReferenceHost
