#include "Projects/Fretline/shell/ShowOptions.h"

#include "Projects/Fretline/shell/FretlineOptions.h"
#include "Projects/Fretline/shell/FretlineOptionsDialog.h"

namespace Fretline {

bool ShowOptionsDialog = true;

bool ShowOptions(Nvr::Platform::NativeWindow parentWindow, const Nvr::String& configFolder) {
    const Nvr::ManagedWindow parent(parentWindow);
    const Nvr::String path = FretlineOptions::PathIn(configFolder);
    FretlineOptions options(path);
    if (!ShowOptionsDialog)
        return true;
    FretlineOptionsDialog dialog(parent, options);
    if (!dialog.RunModal())
        return false;
    ShowOptionsDialog = !dialog.IsNotToBeShownAgain();
    options.Save();
    return true;
}

} // namespace Fretline
