#pragma once

#include "Projects/Fretline/shell/FretlineOptions.h"
#include "Projects/TabText/TabReading.h"
#include "tests/support/ScratchFolder.h"

#include <optional>
#include <string>

namespace TestSupport {

/// A text, read as a file with that text would be at a rhythm level.
class ReadText {
public:
    explicit ReadText(const std::string& text, int rhythmLevel = Fretline::kRhythmsWhenIndicated) {
        const Nvr::String path = Fretline::FretlineOptions::PathIn(Nvr::String(m_Folder.Path().c_str()));
        Fretline::FretlineOptions options(path);
        options.SetRhythmLevel(rhythmLevel);
        options.Save();
        m_Reading.emplace(m_Folder.Write("text.tab", text), m_Folder.Path());
    }

    const TabText::TabReading& operator*() const { return *m_Reading; }
    const TabText::TabReading* operator->() const { return &*m_Reading; }

private:
    ScratchFolder m_Folder;
    std::optional<TabText::TabReading> m_Reading;
};

} // namespace TestSupport
