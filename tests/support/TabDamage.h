#pragma once

#include <span>
#include <string>

namespace TestSupport {

class Dice;

/// One way in which people make a tidy tab untidy.
struct TabDamage {
    const char* Name;
    const char* Does;
    /// Steps that it takes besides those that are on by default, separated by commas; empty for none.
    const char* Steps;
    /// Everything comes back.
    bool IsExact;
    /// Makes a tidy tab one that can be damaged so, such as one with notes that are repeated. May be null.
    std::string (*Fit)(const std::string& tidy);
    std::string (*Damage)(const std::string& tidy, Dice& dice);
};

/// All of them. They are for tabs of MakeTabBook, whose staves have names of strings and barlines.
std::span<const TabDamage> AllTabDamages();

} // namespace TestSupport
