#include "Projects/ReferenceHost/ProgressBar.h"

#include "Projects/ReferenceHost/Terminal.h"

#include <algorithm>
#include <cstdio>

namespace ReferenceHost {

namespace {
constexpr int kLongestBar = 40;
constexpr int kRoomForPercent = 8;
constexpr int kHundred = 100;
} // namespace

void ProgressBar::Begin(const std::string& title) {
    m_Title = title;
}

void ProgressBar::Show(int percent) {
    if (!Terminal::IsErrorTerminal())
        return;
    const int room = Terminal::Width() - static_cast<int>(m_Title.size()) - kRoomForPercent;
    const int length = std::clamp(room, 0, kLongestBar);
    const int filled = length * std::clamp(percent, 0, kHundred) / kHundred;
    const std::string bar = std::string(static_cast<std::size_t>(filled), '#') +
                            std::string(static_cast<std::size_t>(length - filled), '.');
    std::fprintf(stderr, "\r%s %s %3d%%\x1b[K", m_Title.c_str(), bar.c_str(), percent);
    std::fflush(stderr);
    m_Shown = true;
}

void ProgressBar::End() {
    if (!m_Shown)
        return;
    std::fputs("\r\x1b[K", stderr);
    std::fflush(stderr);
    m_Shown = false;
}

} // namespace ReferenceHost
