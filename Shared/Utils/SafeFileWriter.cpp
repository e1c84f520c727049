#include "Shared/Utils/SafeFileWriter.h"

#include <string>
#include <utility>

namespace Nvr {

SafeFileWriter::SafeFileWriter(const String& path)
    : m_Replacement(Platform::PrepareReplacement(std::string(path.View()))) {
    const std::string& written = m_Replacement.Beside.empty() ? m_Replacement.Target : m_Replacement.Beside;
    try {
        m_Stream = std::make_unique<OutFileStream>(String(written));
    } catch (...) {
        RemoveBeside();
        throw;
    }
}

SafeFileWriter::~SafeFileWriter() {
    if (!m_Done) {
        m_Stream->Close();
        RemoveBeside();
    }
}

bool SafeFileWriter::Commit() {
    if (std::exchange(m_Done, true))
        return false;
    const bool written = m_Stream->Close();
    if (m_Replacement.Beside.empty())
        return written;
    if (written && Platform::FinishReplacement(m_Replacement))
        return true;
    RemoveBeside();
    return false;
}

void SafeFileWriter::RemoveBeside() {
    if (!m_Replacement.Beside.empty())
        Platform::RemoveFile(m_Replacement.Beside);
}

} // namespace Nvr
