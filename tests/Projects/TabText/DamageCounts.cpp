#include "tests/Projects/TabText/DamageCounts.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/RiffLabel.h"
#include "Projects/Fretline/text/TabTimeSignature.h"
#include "Projects/TabText/Preparation.h"
#include "Projects/TabText/StruckNotes.h"
#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/DraftReading.h"
#include "Shared/Utils/AsciiChars.h"
#include "tests/Projects/TabText/UntidyTabs.h"
#include "tests/support/TabBook.h"

#include <algorithm>
#include <sstream>

namespace TestSupport {

namespace {

constexpr std::uint32_t kTabs = 48;
constexpr int kLines = 30;

struct Entries {
    std::vector<std::string> Notes;
    std::vector<std::string> Symbols;
};

void AddBar(const Fretline::TabBar& bar, const Fretline::TabTimeSignature* before, Entries& entries) {
    for (const TabText::StruckNote& note : TabText::StruckNotesOf(bar)) {
        const int open = bar.GetTuning()[static_cast<std::size_t>(note.String)] / 2;
        entries.Notes.push_back(std::to_string(open) + "+" + std::to_string(note.Fret) + " at " +
                                std::to_string(note.Time->m_Position));
    }
    for (const Fretline::ChordReading& chord : bar.GetChordReadings())
        if (chord.m_Written)
            entries.Symbols.emplace_back(Fretline::GetChordText(*chord.m_Chord).CStr());
    if (bar.GetLabel() != nullptr)
        entries.Symbols.emplace_back(bar.GetLabel()->GetText().CStr());
    const Fretline::TabTimeSignature* time = bar.GetTimeSignature();
    if (time != nullptr && (before == nullptr || !time->IsSameAs(*before)))
        entries.Symbols.push_back(std::to_string(time->m_Numerator) + "/" +
                                  std::to_string(time->m_Denominator));
}

Entries EntriesOf(const std::string& text) {
    const TabText::Draft draft(text);
    TabText::DraftReading reading(draft);
    reading.ReadBars();
    Entries entries;
    const Fretline::TabTimeSignature* before = nullptr;
    for (const Fretline::TabBar* bar : reading.GetAnalysis().GetReadableBars()) {
        AddBar(*bar, before, entries);
        before = bar->GetTimeSignature();
    }
    return entries;
}

std::string MakeTidyTab(std::uint32_t seed) {
    TabBookStyle style;
    style.Strings = seed % 4 == 3 ? 4 : 6;
    style.HasChords = seed % 2 == 1;
    style.HasLabels = seed % 3 == 1;
    style.HasTimeSignatures = seed % 5 == 2;
    style.RhythmLine = static_cast<int>(seed / 2 % 3);
    std::string text = MakeTabBook(kLines, style, seed);
    // Labels stand before the first bar: above it, their capitals are read as chords.
    for (std::size_t at = text.find("  "); at != std::string::npos; at = text.find("\n  ", at))
        if (const std::size_t start = at == 0 ? 0 : at + 1; text[start + 2] != ' ')
            text.erase(start, 2);
        else
            ++at;
    return text;
}

int CountDigitsOfStrings(const std::string& tab) {
    int digits = 0;
    std::istringstream lines(tab);
    for (std::string line; std::getline(lines, line);)
        if (line.find("--") != std::string::npos)
            digits += static_cast<int>(std::count_if(line.begin(), line.end(), Nvr::Ascii::IsDigit));
    return digits;
}

std::vector<const TabText::PreparationStep*> StepsFor(const TabDamage& damage) {
    std::vector<const TabText::PreparationStep*> steps = TabText::DefaultPreparationSteps();
    std::istringstream names(damage.Steps);
    for (std::string name; std::getline(names, name, ',');)
        steps.push_back(TabText::FindPreparationStep(name));
    return steps;
}

} // namespace

void EntryCount::Add(const std::vector<std::string>& wanted, const std::vector<std::string>& found) {
    Wanted += static_cast<int>(wanted.size());
    Found += static_cast<int>(found.size());
    Right += CountInOrder(wanted, found);
}

DamageResult CountDamage(const TabDamage& damage) {
    DamageResult result;
    const auto steps = StepsFor(damage);
    for (std::uint32_t seed = 0; seed < kTabs; ++seed) {
        const std::string made = MakeTidyTab(seed);
        const std::string tidy = damage.Fit == nullptr ? made : damage.Fit(made);
        result.DigitsWritten += CountDigitsOfStrings(tidy);
        Dice dice(seed);
        const std::string damaged = damage.Damage(tidy, dice);
        const Entries wanted = EntriesOf(tidy);
        const Entries before = EntriesOf(damaged);
        const Entries after = EntriesOf(TabText::Prepare(damaged, steps).Text);
        result.NotesDamaged.Add(wanted.Notes, before.Notes);
        result.NotesPrepared.Add(wanted.Notes, after.Notes);
        result.SymbolsDamaged.Add(wanted.Symbols, before.Symbols);
        result.SymbolsPrepared.Add(wanted.Symbols, after.Symbols);
    }
    return result;
}

} // namespace TestSupport
