#include "Projects/Opening/StoredOptions.h"

#include "Projects/Fretline/shell/FretlineOptions.h"

namespace Opening {

namespace {

Nvr::String PathIn(const std::filesystem::path& folder) {
    return Fretline::FretlineOptions::PathIn(Nvr::String(folder.c_str()));
}

} // namespace

std::filesystem::path OptionsFileIn(const std::filesystem::path& folder) {
    return PathIn(folder).CStr();
}

std::string StoreRhythmLevel(const std::filesystem::path& folder, int level) {
    const Nvr::String path = PathIn(folder);
    {
        Fretline::FretlineOptions options(path);
        options.SetRhythmLevel(level);
        options.Save();
    }
    if (Fretline::FretlineOptions(path).GetRhythmLevel() != level)
        return "the option cannot be stored in " + std::string(path.CStr());
    return {};
}

} // namespace Opening
