#pragma once

#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/tree/KnownStrings.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Nvr {

/// The strings of one written tree and their indexes in the file, in the order in which they are met.
///
/// Most strings of a tree share their text, and the mark beside that text says where it stands here; a text
/// that comes for the first time is looked up by content. Borrows the strings, which must neither move nor
/// change as long as this lives.
class TreeNodeStringIndexes {
public:
    static constexpr std::uint32_t kNew = 0xFFFFFFFF;
    static constexpr std::uint32_t kWrittenEmpty = 0xFFFFFFFE;

    /// `dropsCarriageReturns`: a string of nothing but carriage returns will be written as the empty string.
    explicit TreeNodeStringIndexes(bool dropsCarriageReturns);

    /// The index of the equal string that was met before; kNew for a new one, which gets the next index;
    /// kWrittenEmpty for one that is to be written as the empty string, which never has an index. Not for
    /// the empty string itself.
    std::uint32_t FindOrAdd(const String& string) {
        const std::uint32_t index = FindByMark(string);
        return index != kNew ? index : FindOrAddContent(string);
    }
    /// The same for a text that has come before as this very text; kNew, and nothing added, for any other.
    std::uint32_t FindByMark(const String& string) const {
        const std::uint32_t mark = string.GetMark();
        // A mark may have been left by anybody.
        return mark < m_Texts.size() && m_Texts[mark].Text == string.CStr() ? m_Texts[mark].Index : kNew;
    }

private:
    /// A shared text, by its mark.
    struct KnownText {
        const char* Text = nullptr;
        std::uint32_t Index = 0;
    };
    static constexpr std::size_t kFewestPlaces = 1024;

    std::uint32_t FindOrAddContent(const String& string);

    std::vector<KnownText> m_Texts;
    /// By their index, or kWrittenEmpty.
    KnownStrings m_Strings{kFewestPlaces};
    std::uint32_t m_NextIndex = 0;
    bool m_DropsCarriageReturns;
};

} // namespace Nvr
