#include "Projects/ReferenceHost/RunProgress.h"

#include "Projects/ReferenceHost/Terminal.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace ReferenceHost {

namespace {

constexpr std::size_t kBarWidth = 30;
constexpr auto kShownEvery = std::chrono::milliseconds(100);

std::string BarOf(std::size_t done, std::size_t count) {
    const std::size_t filled = kBarWidth * done / std::max<std::size_t>(count, 1);
    return std::string(filled, '#') + std::string(kBarWidth - filled, '.');
}

} // namespace

void RunProgress::Begin(std::size_t count) {
    if (!Terminal::IsErrorTerminal())
        return;
    m_Count = count;
    m_Done = 0;
    m_Start = std::chrono::steady_clock::now();
    Show();
}

void RunProgress::Step() {
    ++m_Done;
    if (m_Count != 0 && (!m_IsShown || std::chrono::steady_clock::now() - m_LastShown > kShownEvery))
        Show();
}

void RunProgress::Clear() {
    if (!m_IsShown)
        return;
    std::fputs("\r\x1b[K", stderr);
    std::fflush(stderr);
    m_IsShown = false;
}

void RunProgress::End() {
    Clear();
    m_Count = 0;
}

void RunProgress::Show() {
    m_LastShown = std::chrono::steady_clock::now();
    const double seconds = std::chrono::duration<double>(m_LastShown - m_Start).count();
    const double rate = seconds > 0 ? static_cast<double>(m_Done) / seconds : 0;
    std::fprintf(stderr, "\r%s %zu of %zu files", BarOf(m_Done, m_Count).c_str(), m_Done, m_Count);
    if (rate > 0)
        std::fprintf(stderr, ", %.0f a second, %.0f s left", rate,
                     static_cast<double>(m_Count - m_Done) / rate);
    std::fputs("\x1b[K", stderr);
    std::fflush(stderr);
    m_IsShown = true;
}

} // namespace ReferenceHost
