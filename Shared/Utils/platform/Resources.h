#pragma once

#include "Shared/Utils/platform/Modules.h"

#include <cstddef>
#include <span>
#include <string_view>

/// The data that a module carries with it: texts by number, and byte blocks by type and name or number.
/// One source a platform. Where the platform has no module resources, a module carries a table of them.
namespace Nvr::Platform {

/// The text with the number `id`, or an empty view with a null pointer when the module has none.
/// Valid as long as the module is loaded.
std::string_view FindStringResource(ModuleHandle module, int id);

/// The bytes stored under `type` and the name, or the number when `name` is empty; a span with a null
/// pointer when there are none. Valid as long as the module is loaded.
std::span<const std::byte> FindDataResource(ModuleHandle module, std::string_view type, std::string_view name,
                                            int id);

} // namespace Nvr::Platform
