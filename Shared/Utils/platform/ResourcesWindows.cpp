#include "Shared/Utils/platform/Resources.h"

#include <array>
#include <climits>
#include <map>
#include <string>
#include <utility>
#include <windows.h>

namespace Nvr::Platform {

namespace {

// The system takes a number in place of a name when it fits into 16 bits.
bool IsResourceNumber(int id) {
    return id >= 0 && id <= USHRT_MAX;
}

// What LoadStringA gives is a copy; who asks gets to see it for as long as the module is loaded.
std::string_view Keep(ModuleHandle module, int id, std::string_view text) {
    static std::map<std::pair<ModuleHandle, int>, std::string> s_Texts;
    std::string& kept = s_Texts[{module, id}];
    // Another text of the same number is that of another module, loaded where a former one was.
    if (kept != text)
        kept = text;
    return kept;
}

} // namespace

std::string_view FindStringResource(ModuleHandle module, int id) {
    // Longer texts are cut by everyone who asks.
    constexpr int kLongestText = 1000;
    if (module == nullptr || !IsResourceNumber(id))
        return {};
    std::array<char, kLongestText> text;
    const int length =
        LoadStringA(static_cast<HMODULE>(module), static_cast<UINT>(id), text.data(), kLongestText);
    return length <= 0 ? std::string_view()
                       : Keep(module, id, {text.data(), static_cast<std::size_t>(length)});
}

std::span<const std::byte> FindDataResource(ModuleHandle module, std::string_view type, std::string_view name,
                                            int id) {
    if (module == nullptr || (name.empty() && !IsResourceNumber(id)))
        return {};
    const HMODULE native = static_cast<HMODULE>(module);
    const std::string typeText(type);
    const std::string nameText(name);
    const HRSRC found =
        FindResourceA(native, name.empty() ? MAKEINTRESOURCEA(id) : nameText.c_str(), typeText.c_str());
    const HGLOBAL loaded = found != nullptr ? LoadResource(native, found) : nullptr;
    const auto* const bytes =
        loaded != nullptr ? static_cast<const std::byte*>(LockResource(loaded)) : nullptr;
    // There is nothing to release: the bytes lie in the memory of the module.
    return bytes != nullptr ? std::span(bytes, SizeofResource(native, found)) : std::span<const std::byte>();
}

} // namespace Nvr::Platform
