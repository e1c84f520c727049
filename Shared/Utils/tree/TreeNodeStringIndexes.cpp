#include "Shared/Utils/tree/TreeNodeStringIndexes.h"

namespace Nvr {

namespace {

constexpr std::size_t kFewestPlaces = 1024;

bool HoldsOnlyCarriageReturns(const String& string) {
    return string.View().find_first_not_of('\r') == std::string_view::npos;
}

} // namespace

TreeNodeStringIndexes::TreeNodeStringIndexes(bool dropsCarriageReturns)
    : m_Strings(kFewestPlaces), m_DropsCarriageReturns(dropsCarriageReturns) {}

std::uint32_t TreeNodeStringIndexes::FindOrAddContent(const String& string) {
    KnownString& known = m_Strings[PlaceOf(string)];
    bool getsIndex = false;
    if (known.Text == nullptr) {
        getsIndex = !(m_DropsCarriageReturns && HoldsOnlyCarriageReturns(string));
        known = {&string, string.Hash(), getsIndex ? m_NextIndex++ : kWrittenEmpty};
        ++m_StringCount;
    }
    const std::uint32_t index = known.Index;
    string.SetMark(static_cast<std::uint32_t>(m_Texts.size()));
    m_Texts.push_back({string.CStr(), index});
    if (m_StringCount * 2 > m_Strings.size())
        GrowStrings();
    return getsIndex ? kNew : index;
}

std::size_t TreeNodeStringIndexes::PlaceOf(const String& string) const {
    constexpr std::uint32_t kGoldenRatio = 0x9E3779B9U;
    constexpr unsigned kHalf = 16;
    const std::uint32_t hash = string.Hash();
    const std::uint32_t mixed = hash * kGoldenRatio;
    std::size_t place = (mixed ^ mixed >> kHalf) & (m_Strings.size() - 1);
    while (m_Strings[place].Text != nullptr &&
           (m_Strings[place].Hash != hash || !(*m_Strings[place].Text == string)))
        place = (place + 1) & (m_Strings.size() - 1);
    return place;
}

void TreeNodeStringIndexes::GrowStrings() {
    std::vector<KnownString> old(m_Strings.size() * 2);
    old.swap(m_Strings);
    for (const KnownString& known : old) {
        if (known.Text != nullptr)
            m_Strings[PlaceOf(*known.Text)] = known;
    }
}

} // namespace Nvr
