#pragma once

#include "Shared/Utils/NvrString.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Nvr {

/// The strings of one written tree and their indexes in the file, in the order in which they are met.
///
/// Most strings of a tree share their text, so the address of the text finds them; what has another address
/// is looked up by content. Borrows the strings, which must neither move nor change as long as this lives.
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
        for (std::size_t place = PlaceOf(string.CStr());; place = Next(place, m_Addresses.size())) {
            const KnownAddress& known = m_Addresses[place];
            if (known.Text == string.CStr())
                return known.Index;
            if (known.Text == nullptr)
                return FindOrAddContent(string, place);
        }
    }

private:
    struct KnownAddress {
        const char* Text = nullptr;
        std::uint32_t Index = 0;
    };
    struct KnownString {
        const String* Text = nullptr;
        std::uint32_t Hash = 0;
        std::uint32_t Index = 0;
    };

    std::uint32_t FindOrAddContent(const String& string, std::size_t addressPlace);
    std::size_t PlaceOf(const char* address) const;
    std::size_t PlaceOf(const String& string) const;
    static std::size_t Next(std::size_t place, std::size_t size) { return (place + 1) & (size - 1); }
    void GrowAddresses();
    void GrowStrings();

    // Open addressing, with a size that is a power of two and at most half of the places taken.
    std::vector<KnownAddress> m_Addresses;
    std::vector<KnownString> m_Strings;
    std::size_t m_AddressCount = 0;
    std::size_t m_StringCount = 0;
    std::uint32_t m_NextIndex = 0;
    bool m_DropsCarriageReturns;
};

inline std::size_t TreeNodeStringIndexes::PlaceOf(const char* address) const {
    // Blocks of memory lie 16 bytes apart at least; the multiplication spreads regular distances.
    constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15U;
    constexpr unsigned kHighHalf = 32;
    const std::uint64_t mixed = reinterpret_cast<std::uintptr_t>(address) * kGoldenRatio;
    return static_cast<std::size_t>(mixed >> kHighHalf) & (m_Addresses.size() - 1);
}

} // namespace Nvr
