#include "Projects/ReferenceHost/ProgressWatcher.h"

#include <csignal>

namespace ReferenceHost {

namespace {

// The signal that asked for the end; 0 while none has.
volatile std::sig_atomic_t g_interrupt = 0;

extern "C" void NoteInterrupt(int signal) {
    g_interrupt = signal;
    std::signal(signal, SIG_DFL);
}

} // namespace

void CatchInterrupts() {
    std::signal(SIGINT, NoteInterrupt);
    std::signal(SIGTERM, NoteInterrupt);
    // Who runs it by nohup wants it to go on without a terminal.
    if (std::signal(SIGHUP, NoteInterrupt) == SIG_IGN)
        std::signal(SIGHUP, SIG_IGN);
}

bool WasInterrupted() {
    return g_interrupt != 0;
}

bool WasAskedToEnd() {
    return g_interrupt == SIGTERM || g_interrupt == SIGHUP;
}

void ProgressWatcher::OnBegin(const std::string& title) {
    if (m_ShowsProgress)
        m_Bar.Begin(title);
}

bool ProgressWatcher::OnPercent(int percent) {
    if (m_ShowsProgress)
        m_Bar.Show(percent);
    return !WasInterrupted();
}

void ProgressWatcher::OnEnd() {
    m_Bar.End();
}

} // namespace ReferenceHost
