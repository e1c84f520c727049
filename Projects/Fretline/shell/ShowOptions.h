#pragma once

#include "Shared/Utils/NvrString.h"

namespace Fretline {

/// Settles how far rhythms are imported before a file is converted; the answer stands in the options file of
/// `configFolder`. True to go on, false when the user has cancelled. `parentWindow` is the host's native
/// handle, null for none. The stored level stands as long as there is no dialog to ask the user with.
bool ShowOptions(void* parentWindow, const Nvr::String& configFolder);

} // namespace Fretline
