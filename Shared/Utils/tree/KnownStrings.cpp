#include "Shared/Utils/tree/KnownStrings.h"

#include <utility>

namespace Nvr {

void KnownStrings::Clear() noexcept {
    m_Count = 0;
    m_MostStrings = 0;
    m_Places = std::vector<Place>();
    m_Crowded.clear();
}

void KnownStrings::Grow() {
    KnownStrings larger(m_FewestPlaces);
    const std::size_t places = m_Places.empty() ? m_FewestPlaces : m_MostStrings * 4;
    // The last of them is tried like any other without a way round to the first.
    larger.m_Places.resize(places + kMostTries - 1);
    larger.m_MostStrings = places / 2;
    for (const Place& place : m_Places)
        larger.Enter(place);
    for (const auto& [text, place] : m_Crowded)
        larger.Enter(place);
    larger.m_Count = m_Count;
    *this = std::move(larger);
}

void KnownStrings::Enter(const Place& known) {
    if (known.Text != nullptr)
        Look(*known.Text) = known;
}

} // namespace Nvr
