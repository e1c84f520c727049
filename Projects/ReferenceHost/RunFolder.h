#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace ReferenceHost {

/// Folders of this run's own for what lives no longer than it: tabs under temporary names, the options of the
/// run, and whatever the plug-in keeps for a while, as one of them is this process's folder for temporary
/// files. So what a killed worker left goes with them too. Removed with the object, in the process that made
/// it.
///
/// There are two. What is small lies in memory where the system offers a place for that, as long as the user
/// has chosen no folder by TMPDIR: a score is written, read once and deleted, and need not meet a disk. What
/// is large lies in the usual folder for temporary files. Where there is no place in memory both are one.
class RunFolder {
public:
    RunFolder();
    ~RunFolder();
    RunFolder(const RunFolder&) = delete;
    RunFolder& operator=(const RunFolder&) = delete;

    /// The one for what is small. Empty when no folder could be made.
    const std::filesystem::path& Path() const { return m_InMemory.empty() ? m_Usual : m_InMemory; }

    /// The one in which there is room for a text of so many bytes and its score. From now on it is this
    /// process's folder for temporary files.
    const std::filesystem::path& MakeReadyFor(std::uintmax_t textSize) const;

private:
    std::filesystem::path m_InMemory;
    std::filesystem::path m_Usual;
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
