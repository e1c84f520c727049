#include "Projects/ReferenceHost/Opening.h"

#include "Projects/ReferenceHost/Plugin.h"
#include "Projects/ReferenceHost/ScoreFile.h"

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
}

bool WasInterrupted() {
    return g_interrupt != 0;
}

bool WasAskedToEnd() {
    return g_interrupt == SIGTERM;
}

OpeningResult Opening::Open(const Plugin& plugin, const std::filesystem::path& file) {
    m_Result = {};
    m_HasBegun = false;
    SetHostListener(this);
    m_Result.Taken = plugin.OpenFile(file);
    SetHostListener(nullptr);
    // A file that was taken and never got as far as the progress dialog was cancelled in the options dialog.
    m_Result.Cancelled = m_Result.Cancelled || (m_Result.Taken && !m_HasBegun);
    m_Bar.End();
    return std::move(m_Result);
}

void Opening::OnProgressBegin(const std::string& title) {
    m_HasBegun = true;
    if (m_ShowsProgress)
        m_Bar.Begin(title);
}

bool Opening::OnProgress(int percent) {
    if (m_ShowsProgress)
        m_Bar.Show(percent);
    m_Result.Cancelled = m_Result.Cancelled || WasInterrupted();
    return !m_Result.Cancelled;
}

void Opening::OnProgressEnd() {
    m_Bar.End();
}

void Opening::OnMessage(const std::string& text) {
    m_Result.Messages.push_back(text);
}

void Opening::OnScore(const std::string& path) {
    m_Result.Score = ReadWholeFile(path);
    // A score that could not be written, on a full disk say.
    if (m_Result.Score && m_Result.Score->empty())
        m_Result.Score.reset();
}

} // namespace ReferenceHost
