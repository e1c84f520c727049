#pragma once

#include <chrono>
#include <cstddef>

namespace ReferenceHost {

/// How far a run over many files has come: a bar with rate and time left, on a terminal of the error stream
/// only. Leaves nothing there when it ends.
class RunProgress {
public:
    RunProgress() = default;
    ~RunProgress() { End(); }
    RunProgress(const RunProgress&) = delete;
    RunProgress& operator=(const RunProgress&) = delete;

    void Begin(std::size_t count);
    /// One more file is done.
    void Step();
    /// Takes the bar away, so that something else can be said; the next step shows it again.
    void Clear();
    void End();

private:
    void Show();

    std::size_t m_Count = 0;
    std::size_t m_Done = 0;
    bool m_IsShown = false;
    std::chrono::steady_clock::time_point m_Start;
    std::chrono::steady_clock::time_point m_LastShown;
};

} // namespace ReferenceHost
