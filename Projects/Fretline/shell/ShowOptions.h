#pragma once

#include "Shared/Gui/GuiWindow.h"
#include "Shared/Utils/NvrString.h"

namespace Fretline {

/// False once the user has ticked "Don't show this again", for as long as the library is loaded.
extern bool ShowOptionsDialog;

/// Settles how far rhythms are imported before a file is converted: asks the user, unless he does not want to
/// be asked again; the answer stands in the options file of `configFolder`. True to go on, false when the
/// user has cancelled; ShowOptionsDialog is as it was then. `parentWindow` is the host's native handle, null
/// for none: then the dialog has no owner, or on a terminal nobody is asked and the stored level is accepted.
/// Throws WindowException when the dialog cannot be made.
bool ShowOptions(Nvr::Platform::NativeWindow parentWindow, const Nvr::String& configFolder);

} // namespace Fretline
