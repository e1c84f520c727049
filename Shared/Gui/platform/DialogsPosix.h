#pragma once

#include "Shared/Gui/platform/Dialogs.h"

namespace Nvr {
struct DialogLayout;
}

namespace Nvr::Platform {

/// RunDialog once the dialog's layout is there: on the terminal when `parent` is not null and standard input
/// and output are a terminal, else without a person.
std::optional<bool> RunDialogOfLayout(NativeWindow parent, const DialogLayout& layout, DialogEvents& events);

} // namespace Nvr::Platform
