#pragma once

#include "tests/support/TabDamage.h"

#include <string>
#include <vector>

namespace TestSupport {

/// How much of what was wanted a text gives.
struct EntryCount {
    int Wanted = 0;
    int Found = 0;
    /// Those that were wanted, in their order.
    int Right = 0;

    void Add(const std::vector<std::string>& wanted, const std::vector<std::string>& found);
    bool IsAllRight() const { return Wanted == Found && Wanted == Right; }
};

/// What became of some tidy tabs, damaged in one way. Notes are entries of pitch, string and place in their
/// bar; symbols are chords, labels and time signatures.
struct DamageResult {
    /// In the tidy tabs, which have a digit for each.
    int DigitsWritten = 0;
    EntryCount NotesDamaged;
    EntryCount NotesPrepared;
    EntryCount SymbolsDamaged;
    EntryCount SymbolsPrepared;
};

/// Of 48 made-up tabs of four and six strings, with chords, labels, signatures and rhythm lines and without.
DamageResult CountDamage(const TabDamage& damage);

} // namespace TestSupport
