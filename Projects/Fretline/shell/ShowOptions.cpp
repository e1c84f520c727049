#include "Projects/Fretline/shell/ShowOptions.h"

#include "Projects/Fretline/shell/FretlineOptions.h"

namespace Fretline {

bool ShowOptions(void* /*parentWindow*/, const Nvr::String& configFolder) {
    const Nvr::String path = FretlineOptions::PathIn(configFolder);
    const FretlineOptions options(path);
    return true;
}

} // namespace Fretline
