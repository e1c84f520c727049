#include "tests/Projects/TabText/DamageCounts.h"

#include <gtest/gtest.h>

namespace {

using TestSupport::DamageResult;
using TestSupport::TabDamage;

TEST(TabDamage, IsMadeGood) {
    // Where not all comes back, of a thousand notes and symbols.
    constexpr int kFewestRight = 995;
    for (const TabDamage& damage : TestSupport::AllTabDamages()) {
        const DamageResult result = TestSupport::CountDamage(damage);
        EXPECT_FALSE(result.NotesDamaged.IsAllRight() && result.SymbolsDamaged.IsAllRight()) << damage.Name;
        EXPECT_EQ(result.DigitsWritten, result.NotesDamaged.Wanted) << damage.Name;
        for (const TestSupport::EntryCount& count : {result.NotesPrepared, result.SymbolsPrepared}) {
            const int mostFound = count.Wanted + count.Wanted * (1000 - kFewestRight) / 1000;
            EXPECT_LT(0, count.Wanted) << damage.Name;
            EXPECT_LE(count.Found, damage.IsExact ? count.Wanted : mostFound) << damage.Name;
            EXPECT_GE(count.Right * 1000, count.Wanted * (damage.IsExact ? 1000 : kFewestRight))
                << damage.Name;
        }
    }
}

} // namespace
