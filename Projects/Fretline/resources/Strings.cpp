#include "Projects/Fretline/resources/StringTable.h"
#include "Shared/Utils/platform/ResourceTable.h"

#include <array>

namespace {

using Nvr::Platform::StringResource;

constexpr auto kStrings = [] {
    std::array<StringResource, std::size(Fretline::kResourceTexts)> strings{};
    for (std::size_t i = 0; i < strings.size(); ++i)
        strings[i] = {Fretline::kResourceTexts[i].Id, Fretline::kResourceTexts[i].Text};
    return strings;
}();

const Nvr::Platform::ResourceTable kResources(kStrings, {});

} // namespace
