#include "Projects/ReferenceHost/Opening.h"

#include "Projects/ReferenceHost/Plugin.h"
#include "Projects/ReferenceHost/ScoreFile.h"

#include <csignal>

namespace ReferenceHost {

namespace {

volatile std::sig_atomic_t g_interrupted = 0;

extern "C" void NoteInterrupt(int signal) {
    g_interrupted = 1;
    std::signal(signal, SIG_DFL);
}

} // namespace

void CatchInterrupts() {
    std::signal(SIGINT, NoteInterrupt);
    std::signal(SIGTERM, NoteInterrupt);
}

bool WasInterrupted() {
    return g_interrupted != 0;
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
