#pragma once

#include <string>

namespace ReferenceHost {

/// A progress bar on the terminal of the error stream; silent where that is no terminal. Its line is cleared
/// when it ends, so that it leaves nothing behind.
class ProgressBar {
public:
    ProgressBar() = default;
    ~ProgressBar() { End(); }
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void Begin(const std::string& title);
    /// `percent` from 0 to 100.
    void Show(int percent);
    void End();

private:
    std::string m_Title;
    bool m_Shown = false;
};

} // namespace ReferenceHost
