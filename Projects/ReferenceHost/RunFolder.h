#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace ReferenceHost {

/// A folder of this run's own for what lives no longer than it: tabs under temporary names, the options of
/// the run, and whatever the plug-in keeps for a while: the folder is this process's folder of temporary
/// files, so that also what a killed worker left goes with it. Removed with the object, in the process that
/// made it.
class RunFolder {
public:
    RunFolder();
    ~RunFolder();
    RunFolder(const RunFolder&) = delete;
    RunFolder& operator=(const RunFolder&) = delete;

    /// Empty when no folder could be made.
    const std::filesystem::path& Path() const { return m_Path; }

private:
    std::filesystem::path m_Path;
    int m_Process;
};

/// A text that is no file with a tab's name, under a temporary name as long as the object lives.
class TemporaryTab {
public:
    /// A name for a file that is there: a link. `stem` is what it is called without extension. Empty path
    /// when it fails.
    static TemporaryTab NameFor(const RunFolder& folder, const std::filesystem::path& file);
    /// A file of its own with these bytes.
    static TemporaryTab Write(const RunFolder& folder, const std::string& stem, std::string_view bytes);
    ~TemporaryTab();
    TemporaryTab(TemporaryTab&& other) noexcept;
    TemporaryTab& operator=(TemporaryTab&& other) noexcept;

    const std::filesystem::path& Path() const { return m_Path; }

private:
    explicit TemporaryTab(std::filesystem::path path) : m_Path(std::move(path)) {}

    std::filesystem::path m_Path;
};

} // namespace ReferenceHost
