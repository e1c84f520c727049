#include "Projects/ReferenceHost/StoredOptions.h"

#include "Projects/Fretline/shell/FretlineOptions.h"

namespace ReferenceHost {

std::string PrepareOptions(const std::filesystem::path& configFolder, const std::optional<int>& rhythmLevel) {
    std::error_code failure;
    const std::filesystem::path folder = std::filesystem::absolute(configFolder);
    std::filesystem::create_directories(folder, failure);
    if (!rhythmLevel)
        return {};
    const Nvr::String path = Fretline::FretlineOptions::PathIn(Nvr::String(folder.c_str()));
    {
        Fretline::FretlineOptions options(path);
        options.SetRhythmLevel(*rhythmLevel);
        options.Save();
    }
    if (Fretline::FretlineOptions(path).GetRhythmLevel() != *rhythmLevel)
        return "the option cannot be stored in " + std::string(path.CStr());
    return {};
}

} // namespace ReferenceHost
