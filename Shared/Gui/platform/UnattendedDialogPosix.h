#pragma once

#include "Shared/Gui/platform/Dialogs.h"

namespace Nvr {
struct DialogLayout;
}

namespace Nvr::Platform {

/// The dialog of a process without a person: it opens, accepts what its opening has put into it, as the Enter
/// key would, and ends. Empty when the layout has no button that a person could accept with, or when the
/// button does not end the dialog.
std::optional<bool> RunUnattendedDialog(const DialogLayout& layout, DialogEvents& events);

} // namespace Nvr::Platform
