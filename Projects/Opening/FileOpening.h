#pragma once

#include "Projects/Opening/HostListener.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Opening {

class Plugin;

/// Hears how far one opening is, and may end it.
class OpeningWatcher {
public:
    virtual ~OpeningWatcher() = default;
    virtual void OnBegin(const std::string& title) = 0;
    /// `percent` from 0 to 100. False cancels.
    virtual bool OnPercent(int percent) = 0;
    /// Comes once more after the end; also after an opening that never began.
    virtual void OnEnd() = 0;
};

/// What came of opening one file.
struct OpeningResult {
    bool Taken = false;
    /// By the watcher, or in the options dialog.
    bool Cancelled = false;
    /// The bytes of the finished score, when there is one.
    std::optional<std::string> Score;
    std::vector<std::string> Messages;
};

/// Opens one file through the plug-in: tells progress, keeps messages and the score, passes the watcher's
/// cancel on as the host's.
class FileOpening : private HostListener {
public:
    /// Borrows the watcher.
    explicit FileOpening(OpeningWatcher& watcher) : m_Watcher(watcher) {}

    OpeningResult Open(const Plugin& plugin, const std::filesystem::path& file);

private:
    void OnProgressBegin(const std::string& title) override;
    bool OnProgress(int percent) override;
    void OnProgressEnd() override;
    void OnMessage(const std::string& text) override;
    void OnScore(const std::string& path) override;

    OpeningWatcher& m_Watcher;
    bool m_HasBegun = false;
    OpeningResult m_Result;
};

} // namespace Opening
