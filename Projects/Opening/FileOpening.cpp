#include "Projects/Opening/FileOpening.h"

#include "Projects/Opening/Plugin.h"
#include "Projects/Opening/WholeFile.h"

namespace Opening {

OpeningResult FileOpening::Open(const Plugin& plugin, const std::filesystem::path& file) {
    m_Result = {};
    m_HasBegun = false;
    SetHostListener(this);
    m_Result.Taken = plugin.OpenFile(file);
    SetHostListener(nullptr);
    // A file that was taken and never got as far as the progress dialog was cancelled in the options dialog.
    m_Result.Cancelled = m_Result.Cancelled || (m_Result.Taken && !m_HasBegun);
    m_Watcher.OnEnd();
    return std::move(m_Result);
}

void FileOpening::OnProgressBegin(const std::string& title) {
    m_HasBegun = true;
    m_Watcher.OnBegin(title);
}

bool FileOpening::OnProgress(int percent) {
    const bool goesOn = m_Watcher.OnPercent(percent);
    m_Result.Cancelled = m_Result.Cancelled || !goesOn;
    return !m_Result.Cancelled;
}

void FileOpening::OnProgressEnd() {
    m_Watcher.OnEnd();
}

void FileOpening::OnMessage(const std::string& text) {
    m_Result.Messages.push_back(text);
}

void FileOpening::OnScore(const std::string& path) {
    m_Result.Score = ReadWholeFile(path);
    // A score that could not be written, on a full disk say.
    if (m_Result.Score && m_Result.Score->empty())
        m_Result.Score.reset();
}

} // namespace Opening
