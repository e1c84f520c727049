#pragma once

namespace Fretline {

/// True for the letters that begin a chord symbol.
constexpr bool IsChordRoot(char c) {
    return c >= 'A' && c <= 'G';
}

} // namespace Fretline
