#include "Projects/TabText/prepare/GridMetre.h"

#include "Projects/Fretline/score/ScoreTime.h"
#include "Projects/Fretline/stave/NoteLengths.h"
#include "Projects/Fretline/text/TabTimeSignature.h"

#include <string>

namespace TabText {

namespace {

constexpr int kShortestSlot = 64;
constexpr int kMostBeats = 16;
constexpr int kMostDots = 2;

bool IsPowerOfTwo(int number) {
    return (number & (number - 1)) == 0;
}

// The letter of that length, with its dots; empty when there is none.
std::string LetterOf(int units) {
    for (const Fretline::NoteLengthLetter& letter : Fretline::NoteLengthTable)
        for (int dots = 0; dots <= kMostDots; ++dots)
            if (2 * letter.m_Units - (letter.m_Units >> dots) == units)
                return letter.m_Letter + std::string(static_cast<std::size_t>(dots), '.');
    return {};
}

} // namespace

std::optional<GridMetre> GridMetre::Stated(const Fretline::TabTimeSignature* signature) {
    constexpr int kBeatsWithoutSignature = 4;
    GridMetre metre;
    metre.m_Beats = signature == nullptr ? kBeatsWithoutSignature : signature->m_Numerator;
    metre.m_Length = signature == nullptr ? Fretline::kUnitsPerWholeNote : signature->GetLength();
    if (metre.m_Beats > kMostBeats)
        return std::nullopt;
    const bool isCompound =
        metre.m_Beats % 3 == 0 && metre.m_Length < metre.m_Beats * Fretline::kUnitsPerCrotchet;
    const int groups = isCompound ? metre.m_Beats / 3 : metre.m_Beats;
    for (int slots = 1; slots < metre.m_Beats; slots *= 2)
        if (IsPowerOfTwo(groups) && slots <= groups)
            metre.AddSlotCount(slots);
    if (!IsPowerOfTwo(groups))
        metre.AddSlotCount(1);
    for (int slots = metre.m_Beats; metre.m_Length / slots >= kShortestSlot; slots *= 2)
        metre.AddSlotCount(slots);
    return metre;
}

GridMetre GridMetre::Compound(int slots) {
    constexpr int kQuaversOfShortBar = 6;
    const int quavers = slots == kQuaversOfShortBar ? kQuaversOfShortBar : 2 * kQuaversOfShortBar;
    GridMetre metre;
    metre.m_Length = quavers * Fretline::kUnitsPerQuaver;
    for (const int count : {1, 2, 3, 4, 6, 12})
        if (quavers % count == 0)
            metre.AddSlotCount(count);
    metre.AddSlotCount(2 * quavers);
    return metre;
}

void GridMetre::AddSlotCount(int slots) {
    if (m_Length % slots == 0)
        m_SlotCounts.push_back(slots);
}

std::vector<RhythmSign> GridMetre::SignsOf(const BarSpacing& bar, const BarGrid& grid) const {
    return m_Beats > 0 ? CountsOf(grid) : LengthsOf(bar, grid);
}

std::vector<RhythmSign> GridMetre::CountsOf(const BarGrid& grid) const {
    // Numbers of two digits would be two beats.
    constexpr int kLargestNumber = 9;
    constexpr int kBeatsOfAGroup = 3;
    // The last beat has to stand well after the middle of the bar.
    constexpr int kFewestSigns = 3;
    const bool hasRoom = grid.Step > 1 && grid.Slots % (2 * m_Beats) == 0;
    const bool isHalved = hasRoom || m_Beats < kFewestSigns;
    const int signs = isHalved ? 2 * m_Beats : m_Beats;
    const int group = m_Beats <= kLargestNumber ? m_Beats : kBeatsOfAGroup;
    std::vector<RhythmSign> line;
    for (int sign = 0; sign < signs; ++sign) {
        const int beat = isHalved ? sign / 2 : sign;
        const char number = static_cast<char>('1' + beat % group);
        line.push_back({grid.ColumnOf(sign, signs), isHalved && sign % 2 == 1 ? '+' : number});
    }
    return line;
}

std::vector<RhythmSign> GridMetre::LengthsOf(const BarSpacing& bar, const BarGrid& grid) const {
    const int slots = grid.Slots;
    std::vector<RhythmSign> line;
    const auto add = [&](int slot, const std::string& letter) {
        for (std::size_t at = 0; at < letter.size(); ++at)
            line.push_back({grid.ColumnOf(slot, slots) + static_cast<int>(at), letter[at]});
    };
    // A rest is a letter over no note.
    int slot = 0;
    const int firstSlot = bar.Onsets.empty() ? slots : grid.SlotOf(bar.Onsets.front().Column);
    while (slot < firstSlot) {
        int length = firstSlot - slot;
        while (LetterOf(TimeOf(length, slots)).empty())
            --length;
        add(slot, LetterOf(TimeOf(length, slots)));
        slot += length;
    }
    for (std::size_t at = 0; at < bar.Onsets.size(); ++at) {
        const bool isLast = at + 1 == bar.Onsets.size();
        slot = grid.SlotOf(bar.Onsets[at].Column);
        const int end = isLast ? slots : grid.SlotOf(bar.Onsets[at + 1].Column);
        const std::string letter = LetterOf(TimeOf(end - slot, slots));
        if (letter.empty())
            return {};
        add(slot, letter);
    }
    return line;
}

} // namespace TabText
