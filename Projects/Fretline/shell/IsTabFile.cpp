#include "Projects/Fretline/shell/IsTabFile.h"

#include "Projects/Fretline/shell/FileTypes.h"
#include "Shared/Utils/FileStream.h"
#include "Shared/Utils/PathSplitting.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

namespace Fretline {

using Nvr::String;

namespace {

constexpr std::size_t kBlockSize = 65536;

// Counts what tells a tab from another text; a file of any size takes the same room.
class TabTextCount {
public:
    void Add(std::string_view bytes) {
        for (const char byte : bytes)
            Add(byte);
    }

    TabFileVerdict GetVerdict() const {
        if (m_Total == 0)
            return TabFileVerdict::Empty;
        if (!m_HasLineOfHyphens)
            return TabFileVerdict::NoLineOfHyphens;
        return m_Acceptable * 100 / m_Total >= kLeastPercentOfText ? TabFileVerdict::Accepted
                                                                   : TabFileVerdict::NotPlainText;
    }

private:
    void Add(char byte) {
        ++m_Total;
        if (IsAcceptable(byte))
            ++m_Acceptable;
        if (byte == '\n' || byte == '\r')
            m_HyphensOfLine = 0;
        else if (byte == '-' && ++m_HyphensOfLine >= kFewestHyphensOfATab)
            m_HasLineOfHyphens = true;
    }

    static bool IsAcceptable(char byte) {
        return (byte >= ' ' && byte <= '~') || byte == '\t' || byte == '\n' || byte == '\r';
    }

    std::int64_t m_Total = 0;
    std::int64_t m_Acceptable = 0;
    std::int64_t m_HyphensOfLine = 0;
    bool m_HasLineOfHyphens = false;
};

} // namespace

bool HasExtensionOfTab(const String& path) {
    String drive;
    String folder;
    String name;
    String extension;
    Nvr::SplitPath(path, drive, folder, name, extension);
    if (extension.CharAt(0) == '.')
        extension = extension.Mid(1);
    if (extension.IsEmpty())
        return true;
    return std::any_of(FileTypeTable.begin(), FileTypeTable.end(),
                       [&](const FileTypeEntry& type) { return extension.EqualsIgnoreCase(type.Extension); });
}

TabFileVerdict ExamineTabText(const String& path) {
    Nvr::InFileStream file(path);
    if (!file.Good())
        return TabFileVerdict::CannotBeOpened;
    TabTextCount count;
    std::vector<char> block(kBlockSize);
    while (file.Good()) {
        const std::size_t length = file.Read(block.data(), block.size());
        count.Add({block.data(), length});
    }
    return count.GetVerdict();
}

TabFileVerdict ExamineTabFile(const String& path) {
    return HasExtensionOfTab(path) ? ExamineTabText(path) : TabFileVerdict::OtherExtension;
}

bool IsTabFile(const String& path) {
    return ExamineTabFile(path) == TabFileVerdict::Accepted;
}

} // namespace Fretline
