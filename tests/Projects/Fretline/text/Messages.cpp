#include "Shared/Utils/platform/ResourceTable.h"

// The texts of the messages that an analysis sends, as the plug-in carries them.

namespace {

constexpr Nvr::Platform::StringResource kStrings[] = {
    {100, "Line %1 looks like it isn't a real tab stave line so it has been ignored"},
    {101, "Lines %1 to %2 inclusive don't seem to be part of a real stave so they have been ignored"},
};
const Nvr::Platform::ResourceTable kResources(kStrings, {});

} // namespace
