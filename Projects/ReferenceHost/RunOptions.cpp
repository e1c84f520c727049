#include "Projects/ReferenceHost/RunOptions.h"

#include "Projects/Opening/StoredOptions.h"

namespace ReferenceHost {

namespace fs = std::filesystem;

std::string RememberLevel(const CommandLine& line) {
    std::error_code failure;
    const fs::path folder = fs::absolute(line.ConfigFolder);
    fs::create_directories(folder, failure);
    return Opening::StoreRhythmLevel(folder, *line.RhythmLevel);
}

std::string LayOutOptions(const CommandLine& line, const RunFolder& folder) {
    if (folder.Path().empty())
        return "no temporary folder can be made";
    std::error_code failure;
    const fs::path stored = Opening::OptionsFileIn(fs::absolute(line.ConfigFolder));
    const fs::path own = Opening::OptionsFileIn(folder.Path());
    if (fs::exists(stored, failure) &&
        !fs::copy_file(stored, own, fs::copy_options::overwrite_existing, failure))
        return stored.string() + " cannot be read: " + failure.message();
    return line.RhythmLevel ? Opening::StoreRhythmLevel(folder.Path(), *line.RhythmLevel) : std::string();
}

} // namespace ReferenceHost
