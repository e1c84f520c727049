#include "Shared/Utils/tree/TreeNodeStringIndexes.h"

namespace Nvr {

namespace {

bool HoldsOnlyCarriageReturns(const String& string) {
    return string.View().find_first_not_of('\r') == std::string_view::npos;
}

} // namespace

TreeNodeStringIndexes::TreeNodeStringIndexes(bool dropsCarriageReturns)
    : m_DropsCarriageReturns(dropsCarriageReturns) {}

std::uint32_t TreeNodeStringIndexes::FindOrAddContent(const String& string) {
    KnownStrings::Place& known = m_Strings.PlaceOf(string);
    bool getsIndex = false;
    if (known.Text == nullptr) {
        getsIndex = !(m_DropsCarriageReturns && HoldsOnlyCarriageReturns(string));
        m_Strings.Fill(known, string, getsIndex ? m_NextIndex++ : kWrittenEmpty);
    }
    const std::uint32_t index = known.Number;
    string.SetMark(static_cast<std::uint32_t>(m_Texts.size()));
    m_Texts.push_back({string.CStr(), index});
    return getsIndex ? kNew : index;
}

} // namespace Nvr
