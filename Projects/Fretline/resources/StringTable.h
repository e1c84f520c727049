#pragma once

#include "Projects/Fretline/resources/ResourceNumbers.h"

#include <string_view>

/// The texts that the user gets to see, in the one place from which every platform's resources are made.
/// Plain ASCII; "%1" and "%2" are line numbers, counted from 1.
namespace Fretline {

struct ResourceText {
    int Id;
    std::string_view Text;
};

inline constexpr ResourceText kResourceTexts[] = {
    {kMessageLineIgnored, "Line %1 looks like it isn't a real tab stave line so it has been ignored"},
    {kMessageLinesIgnored,
     "Lines %1 to %2 inclusive don't seem to be part of a real stave so they have been ignored"},
    {kProgressTitleResource, "Importing Tab file"},
};

} // namespace Fretline
