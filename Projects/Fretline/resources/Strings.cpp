#include "Shared/Utils/platform/ResourceTable.h"

namespace {

using Nvr::Platform::StringResource;

/// The texts that the user gets to see; "%1" and "%2" are line numbers, counted from 1.
constexpr StringResource kStrings[] = {
    {100, "Line %1 looks like it isn't a real tab stave line so it has been ignored"},
    {101, "Lines %1 to %2 inclusive don't seem to be part of a real stave so they have been ignored"},
    {102, "Importing Tab file"},
};

const Nvr::Platform::ResourceTable kResources(kStrings, {});

} // namespace
