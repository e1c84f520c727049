#pragma once

#include "Shared/NotaveraAPI/NotaveraPlugin.h"

#include <array>

namespace Fretline {

/// What the plug-in tells the host that it takes, and by which it knows its files.
inline constexpr std::array<FileTypeEntry, 3> FileTypeTable = {{
    {"ASCII Tab", "tab", "TEXT"},
    {"ASCII Bass Tab", "btab", "TEXT"},
    {"ASCII Chord", "crd", "TEXT"},
}};

} // namespace Fretline
