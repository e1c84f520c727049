#pragma once

#include "Shared/Utils/AsciiChars.h"

namespace Fretline {

/// What a stave line is drawn with.
constexpr bool IsDash(char c) noexcept {
    return c == '-';
}

/// A struck dead string.
constexpr bool IsMuted(char c) noexcept {
    return c == 'x' || c == 'X';
}

/// What a player's finger may be noted with: part of a fret number, or a struck dead string.
constexpr bool IsFretChar(char c) noexcept {
    return Nvr::Ascii::IsDigit(c) || IsMuted(c);
}

/// The name of an open string; "H" is another name of the note B.
constexpr bool IsNoteLetter(char c) noexcept {
    const char upper = Nvr::Ascii::ToUpper(c);
    return upper >= 'A' && upper <= 'H';
}

} // namespace Fretline
