#pragma once

#include "Projects/TabText/PartLabels.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace TabText {

class TabReading;

/// Bars of a text that sound at the same time.
struct BarsTogether {
    /// For each part its bar, as an index into TabReading::GetBars; none where it rests.
    std::vector<std::optional<std::size_t>> Bars;
    /// The bars stand one below the other: what stands in one column sounds together.
    bool AreAligned = false;
};

/// The parts of a text that sound together, such as a bass below a guitar.
struct PartsTogether {
    /// The top one first; empty when the text is one part, and when its parts are played one after the other
    /// or nobody can tell.
    std::vector<PartName> Names;
    /// All bars of the text that were read, in the order in which they are played.
    std::vector<BarsTogether> Bars;
};

/// Parts (FindParts) sound together when they share systems, in two of three of which their barlines stand
/// below each other, and no lower stave begins a section of its own. Costs in proportion to the text.
PartsTogether FindPartsTogether(const TabReading& reading);

/// The bars of a text in the order in which they are played. Bars that sound together have one place.
class BarOrder {
public:
    explicit BarOrder(const TabReading& reading);

    std::size_t GetCount() const { return m_Bars.size(); }
    /// Of a bar, by its index in TabReading::GetBars.
    std::size_t PlaceOf(std::size_t bar) const { return m_Places[bar]; }
    /// The bars at a place, the top one first. There is at least one.
    const std::vector<std::size_t>& BarsAt(std::size_t place) const { return m_Bars[place]; }

private:
    std::vector<std::size_t> m_Places;
    std::vector<std::vector<std::size_t>> m_Bars;
};

} // namespace TabText
