#include "Projects/ReferenceHost/Inputs.h"

#include "Projects/Explain/WhyNot.h"
#include "Projects/Fretline/shell/IsTabFile.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>

namespace ReferenceHost {

namespace fs = std::filesystem;

namespace {

std::string LowerExtension(const fs::path& path) {
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(), Nvr::Ascii::ToLower);
    return extension;
}

Input::Kind KindOf(const fs::path& path) {
    std::error_code failure;
    const fs::file_status status = fs::status(path, failure);
    if (fs::exists(status) && !fs::is_regular_file(status))
        return Input::Kind::Stream;
    if (LowerExtension(path) == ".nvf")
        return Input::Kind::Score;
    return Fretline::HasExtensionOfTab(Nvr::String(path.c_str())) ? Input::Kind::Tab : Input::Kind::OtherText;
}

bool IsWanted(const fs::path& file) {
    const std::string extension = LowerExtension(file);
    if (extension == ".txt")
        return Explain::HoldsStave(file);
    return !extension.empty() && Fretline::HasExtensionOfTab(Nvr::String(file.c_str()));
}

void AddFolder(const fs::path& folder, std::vector<Input>& inputs, std::vector<std::string>& problems) {
    std::vector<fs::path> files;
    std::error_code failure;
    fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied, failure);
    for (; !failure && entry != fs::recursive_directory_iterator(); entry.increment(failure)) {
        std::error_code ignored;
        if (entry->is_regular_file(ignored) && IsWanted(entry->path()))
            files.push_back(entry->path());
    }
    if (failure)
        problems.push_back(folder.string() + " cannot be read: " + failure.message());
    else if (files.empty())
        problems.push_back(folder.string() + " holds no tab");
    std::sort(files.begin(), files.end());
    for (const fs::path& file : files)
        inputs.push_back({KindOf(file), file, file.lexically_relative(folder)});
}

} // namespace

std::vector<Input> FindInputs(const std::vector<std::string>& words, std::vector<std::string>& problems) {
    std::vector<Input> inputs;
    for (const std::string& word : words) {
        const fs::path path(word);
        std::error_code failure;
        if (word == "-" || word == "/dev/stdin")
            inputs.push_back({Input::Kind::Stream, Input::kStandardInput, "standard-input"});
        else if (fs::is_directory(path, failure))
            AddFolder(path, inputs, problems);
        else
            inputs.push_back({KindOf(path), path, path.filename()});
    }
    return inputs;
}

} // namespace ReferenceHost
