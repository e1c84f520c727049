#include "Projects/ReferenceHost/RunOptions.h"

#include "Projects/Fretline/shell/FretlineOptions.h"

namespace ReferenceHost {

namespace fs = std::filesystem;

namespace {

Nvr::String OptionsIn(const fs::path& folder) {
    return Fretline::FretlineOptions::PathIn(Nvr::String(folder.c_str()));
}

std::string StoreLevel(const fs::path& folder, int level) {
    const Nvr::String path = OptionsIn(folder);
    {
        Fretline::FretlineOptions options(path);
        options.SetRhythmLevel(level);
        options.Save();
    }
    if (Fretline::FretlineOptions(path).GetRhythmLevel() != level)
        return "the option cannot be stored in " + std::string(path.CStr());
    return {};
}

} // namespace

std::string RememberLevel(const CommandLine& line) {
    std::error_code failure;
    const fs::path folder = fs::absolute(line.ConfigFolder);
    fs::create_directories(folder, failure);
    return StoreLevel(folder, *line.RhythmLevel);
}

std::string LayOutOptions(const CommandLine& line, const RunFolder& folder) {
    if (folder.Path().empty())
        return "no temporary folder can be made";
    std::error_code failure;
    const fs::path stored(OptionsIn(fs::absolute(line.ConfigFolder)).CStr());
    const fs::path own(OptionsIn(folder.Path()).CStr());
    if (fs::exists(stored, failure) &&
        !fs::copy_file(stored, own, fs::copy_options::overwrite_existing, failure))
        return stored.string() + " cannot be read: " + failure.message();
    return line.RhythmLevel ? StoreLevel(folder.Path(), *line.RhythmLevel) : std::string();
}

} // namespace ReferenceHost
