#pragma once

#include "Projects/Score/LilyPond.h"
#include "Projects/Score/ScoreParts.h"
#include "Projects/TabText/Doubts.h"
#include "Projects/TabText/LineMap.h"
#include "Projects/TabText/Markings.h"
#include "Projects/TabText/SplitParts.h"
#include "Projects/TabText/TabReading.h"
#include "Shared/Utils/tree/TreeNode.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Formats {

/// Where a tab lies while it is converted, for whoever reads it again. Absolute.
struct TabPlace {
    std::filesystem::path File;
    /// The folder of the options that it was converted with.
    std::filesystem::path ConfigFolder;
    /// Of a text that was prepared: from its lines and columns to those that the user knows.
    std::optional<TabText::LineMap> Map;

    /// A place of the text as the user knows it.
    TabText::TextPlace ToOriginal(int line, int column) const {
        return Map ? Map->ToOriginal(line, column) : TabText::TextPlace{line, column};
    }
};

/// What of a finished score is asked for. The rest need not be read, or kept.
struct Wanted {
    bool Bytes = true;
    bool Music = true;

    void Add(const Wanted& other) {
        Bytes = Bytes || other.Bytes;
        Music = Music || other.Music;
    }
};

/// What came of one file that was opened: everything that a format may be written from. Owns all of it.
struct Conversion {
    /// What the user calls the file.
    std::string Source;
    /// For people: the name of the file without folder and extension, UTF-8.
    std::string Title;
    /// Which part of the text it is, where that was cut into several; else empty.
    std::string Part;
    /// The finished score, byte for byte as the plug-in wrote it. Empty unless it was wanted.
    std::string ScoreBytes;
    /// The text that it was made from; none for a finished score, which no longer knows its text.
    std::optional<TabPlace> Tab;

    /// The staves of an engraved score.
    Score::Layout Layout = Score::Layout::Both;

    /// Takes a finished score, and reads it where its music is wanted. Empty when it cannot be read; `why`
    /// then says what is wrong with it.
    static std::optional<Conversion> Of(std::string scoreBytes, const std::filesystem::path& source,
                                        Wanted wanted, std::string& why);

    /// The tree of the score as text. The whole of it is read only for this. REQUIRES: the bytes were wanted.
    std::string GetTreeText() const;

    /// What was read in the text, null for a finished score. The text is read when this is first asked for,
    /// and must still be in its place then.
    const TabText::TabReading* GetReading() const;

    /// The score as music, in one part, with what the players wrote between the frets where its text is
    /// known; joined when this is first asked for. REQUIRES: it was wanted, as for whatever is made from it.
    const Score::ScoreModel& GetMusic() const;

    /// The same as the parts that sound together, where its text shows several; else itself. Split when first
    /// asked for, as is GetSplit, which is empty for one part.
    Score::ScoreParts GetParts() const;
    const TabText::SplitScore& GetSplit() const;

    /// What the players wrote between the frets and around the staves; nothing for a finished score. Read
    /// when first asked for.
    const TabText::Markings& GetMarkings() const;

    /// What of the text was read and is probably not meant so, at its place in the text as the user knows it;
    /// nothing for a finished score. Found when first asked for.
    const std::vector<TabText::Doubt>& GetDoubts() const;

private:
    mutable Score::ScoreModel m_Music;
    mutable bool m_IsJoined = false;
    mutable std::optional<TabText::SplitScore> m_Split;
    mutable std::unique_ptr<TabText::TabReading> m_Reading;
    mutable std::optional<TabText::Markings> m_Markings;
    mutable std::optional<std::vector<TabText::Doubt>> m_Doubts;
};

} // namespace Formats
