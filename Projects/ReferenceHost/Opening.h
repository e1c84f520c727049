#pragma once

#include "Projects/ReferenceHost/HostFunctions.h"
#include "Projects/ReferenceHost/ProgressBar.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace ReferenceHost {

class Plugin;

/// What came of opening one file.
struct OpeningResult {
    bool Taken = false;
    /// By Ctrl-C, or in the options dialog.
    bool Cancelled = false;
    /// The bytes of the finished score, when there is one.
    std::optional<std::string> Score;
    std::vector<std::string> Messages;
};

/// Opens one file through the plug-in: shows progress, keeps messages and the score, passes Ctrl-C on as the
/// host's cancel.
class Opening : private HostListener {
public:
    explicit Opening(bool showsProgress) : m_ShowsProgress(showsProgress) {}

    OpeningResult Open(const Plugin& plugin, const std::filesystem::path& file);

private:
    void OnProgressBegin(const std::string& title) override;
    bool OnProgress(int percent) override;
    void OnProgressEnd() override;
    void OnMessage(const std::string& text) override;
    void OnScore(const std::string& path) override;

    bool m_ShowsProgress;
    ProgressBar m_Bar;
    bool m_HasBegun = false;
    OpeningResult m_Result;
};

/// Makes Ctrl-C, and a request to end, cancel the running conversion instead of ending the program. A second
/// Ctrl-C ends it.
void CatchInterrupts();
/// True once Ctrl-C was pressed, or a request to end came.
bool WasInterrupted();
/// True when it was a request to end.
bool WasAskedToEnd();

} // namespace ReferenceHost
