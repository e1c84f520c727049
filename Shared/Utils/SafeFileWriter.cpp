#include "Shared/Utils/SafeFileWriter.h"

#include <string>
#include <utility>

namespace Nvr {

SafeFileWriter::SafeFileWriter(const String& path)
    : m_Replacement(Platform::PrepareReplacement(std::string(path.View()))) {
    try {
        m_Stream = std::make_unique<OutFileStream>(String(WrittenPath()));
    } catch (...) {
        RemoveBeside();
        throw;
    }
}

SafeFileWriter::~SafeFileWriter() {
    m_Stream->Close();
    RemoveBeside();
}

bool SafeFileWriter::Commit() {
    return CommitAs(false);
}

bool SafeFileWriter::CommitToDisk() {
    return CommitAs(true);
}

bool SafeFileWriter::CommitAs(bool isToReachTheDisk) {
    if (std::exchange(m_Done, true))
        return false;
    const bool written = m_Stream->Close();
    const bool isFlushed = written && (!isToReachTheDisk || Platform::FlushToDisk(WrittenPath()));
    if (m_Replacement.Beside.empty())
        return isFlushed;
    if (!isFlushed || !Platform::FinishReplacement(m_Replacement)) {
        RemoveBeside();
        return false;
    }
    m_Replacement.Beside.clear();
    return true;
}

const std::string& SafeFileWriter::WrittenPath() const {
    return m_Replacement.Beside.empty() ? m_Replacement.Target : m_Replacement.Beside;
}

void SafeFileWriter::RemoveBeside() {
    if (!m_Replacement.Beside.empty())
        Platform::RemoveFile(m_Replacement.Beside);
    m_Replacement.Beside.clear();
}

} // namespace Nvr
