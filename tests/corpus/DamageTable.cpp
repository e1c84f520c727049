// Prints what the preparation brings back of made-up tabs that were damaged, a line for each way of damage:
// of the notes and symbols that the tidy tabs have, how many the damaged ones give, and how many the prepared
// ones; in brackets those that nobody wrote.

#include "tests/Projects/TabText/DamageCounts.h"

#include <cstdio>
#include <string>

namespace {

std::string Shown(const TestSupport::EntryCount& count) {
    const int wrong = count.Found - count.Right;
    return std::to_string(count.Right) + (wrong > 0 ? " (" + std::to_string(wrong) + ")" : "");
}

} // namespace

int main() {
    std::printf("| Damage | Notes | damaged | prepared | Symbols | damaged | prepared |\n");
    std::printf("|---|---|---|---|---|---|---|\n");
    for (const TestSupport::TabDamage& damage : TestSupport::AllTabDamages()) {
        const TestSupport::DamageResult result = TestSupport::CountDamage(damage);
        std::printf("| %s | %d | %s | %s | %d | %s | %s |\n", damage.Does, result.NotesDamaged.Wanted,
                    Shown(result.NotesDamaged).c_str(), Shown(result.NotesPrepared).c_str(),
                    result.SymbolsDamaged.Wanted, Shown(result.SymbolsDamaged).c_str(),
                    Shown(result.SymbolsPrepared).c_str());
    }
    return 0;
}
