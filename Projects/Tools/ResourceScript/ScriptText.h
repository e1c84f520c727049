#pragma once

#include <string>
#include <string_view>

namespace ResourceScript {

/// `text` as a quoted text of a resource script. Throws std::runtime_error when it holds anything but
/// printable ASCII: what a script makes of other bytes depends on the machine that compiles it.
std::string Quoted(std::string_view text);

} // namespace ResourceScript
