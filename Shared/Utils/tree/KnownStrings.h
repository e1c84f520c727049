#pragma once

#include "Shared/Utils/NvrString.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace Nvr {

/// Distinct strings, each with a number, found by their text.
///
/// A string is found at the same cost however many there are, and at a cost that grows with the logarithm of
/// their number when somebody has chosen them so that their hashes get into each other's way. Borrows the
/// strings, which must neither move nor change as long as they are known here.
class KnownStrings {
public:
    struct Place {
        /// Null for a place that is free.
        const String* Text = nullptr;
        std::uint32_t Hash = 0;
        std::uint32_t Number = 0;
    };

    /// Takes memory with the first string: room for `fewestPlaces`, a power of two.
    explicit KnownStrings(std::size_t fewestPlaces) : m_FewestPlaces(fewestPlaces) {}

    /// The place of the equal string, or a free one for this string. Valid until the next call of any
    /// operation but Fill. A failed allocation leaves what is known as it was.
    Place& PlaceOf(const String& string) {
        if (m_Places.empty())
            Grow();
        Place& place = Look(string);
        if (place.Text != nullptr || m_Count < m_MostStrings)
            return place;
        Grow();
        return Look(string);
    }
    /// Makes `string` known at the free place that PlaceOf gave for an equal one.
    void Fill(Place& place, const String& string, std::uint32_t number = 0) noexcept {
        place = {&string, string.Hash(), number};
        ++m_Count;
    }
    /// Forgets all strings and gives back the memory.
    void Clear() noexcept;

private:
    struct ByBytes {
        bool operator()(const String& left, const String& right) const { return left.View() < right.View(); }
    };

    /// So many places from its own on may hold a string; one that finds all of them taken goes to m_Crowded.
    static constexpr std::size_t kMostTries = 16;

    static std::uint32_t Spread(std::uint32_t hash) {
        // The hash of a string changes least where it differs most; this spreads it over the index.
        constexpr std::uint32_t kGoldenRatio = 0x9E3779B9U;
        constexpr unsigned kHalf = 16;
        const std::uint32_t mixed = hash * kGoldenRatio;
        return mixed ^ mixed >> kHalf;
    }
    Place& Look(const String& string) {
        const std::uint32_t hash = string.Hash();
        Place* place = &m_Places[Spread(hash) & (m_MostStrings * 2 - 1)];
        for (const Place* const end = place + kMostTries; place != end; ++place) {
            if (place->Text == nullptr || (place->Hash == hash && *place->Text == string))
                return *place;
        }
        // A place that is made here and never filled stays free.
        return m_Crowded[string];
    }
    void Grow();
    void Enter(const Place& known);

    std::size_t m_FewestPlaces;
    std::size_t m_Count = 0;
    /// Half of the places that hashes lead to, whose number is a power of two.
    std::size_t m_MostStrings = 0;
    std::vector<Place> m_Places;
    std::map<String, Place, ByBytes> m_Crowded;
};

} // namespace Nvr
