#include "Projects/Formats/Conversion.h"

namespace Formats {

std::optional<Conversion> Conversion::Of(std::string scoreBytes, const std::filesystem::path& source,
                                         Wanted wanted, std::string& why) {
    Conversion conversion;
    if (wanted.Music) {
        std::optional<Score::ScoreModel> music = Score::ScoreModel::ReadStored(scoreBytes, why);
        // The strings of an archive would pile up.
        Nvr::ClearNodeStringTable();
        if (!music)
            return std::nullopt;
        conversion.m_Music = std::move(*music);
    }
    conversion.Source = source.string();
    conversion.Title = source.stem().string();
    if (wanted.Bytes)
        conversion.ScoreBytes = std::move(scoreBytes);
    return conversion;
}

std::string Conversion::GetTreeText() const {
    const std::unique_ptr<Nvr::TreeNode> tree(
        Nvr::TreeNode::LoadFromMemory(ScoreBytes.data(), ScoreBytes.size()));
    return tree == nullptr ? std::string() : std::string(tree->ToText().View());
}

const TabText::TabReading* Conversion::GetReading() const {
    if (m_Reading == nullptr && Tab)
        m_Reading = std::make_unique<TabText::TabReading>(Tab->File, Tab->ConfigFolder);
    return m_Reading.get();
}

const Score::ScoreModel& Conversion::GetMusic() const {
    if (!m_IsJoined)
        if (const TabText::TabReading* reading = GetReading())
            TabText::JoinMarkings(*reading, GetMarkings(), m_Music);
    m_IsJoined = true;
    return m_Music;
}

const TabText::SplitScore& Conversion::GetSplit() const {
    if (!m_Split) {
        const TabText::TabReading* reading = GetReading();
        m_Split = reading == nullptr ? TabText::SplitScore() : TabText::SplitParts(*reading, GetMusic());
    }
    return *m_Split;
}

Score::ScoreParts Conversion::GetParts() const {
    const std::vector<Score::ScoreModel>& parts = GetSplit().Parts;
    return parts.empty() ? Score::AsParts(GetMusic()) : Score::ScoreParts(parts);
}

const TabText::Markings& Conversion::GetMarkings() const {
    if (!m_Markings) {
        const TabText::TabReading* reading = GetReading();
        m_Markings = reading == nullptr ? TabText::Markings()
                                        : TabText::ReadMarkings(*reading, Tab->Map ? &*Tab->Map : nullptr);
    }
    return *m_Markings;
}

const std::vector<TabText::Doubt>& Conversion::GetDoubts() const {
    if (!m_Doubts) {
        const TabText::TabReading* reading = GetReading();
        m_Doubts =
            reading == nullptr ? std::vector<TabText::Doubt>() : TabText::FindDoubts(*reading, GetMarkings());
        for (TabText::Doubt& doubt : *m_Doubts) {
            const TabText::TextPlace end = Tab->ToOriginal(doubt.Line, doubt.EndColumn);
            const TabText::TextPlace start = Tab->ToOriginal(doubt.Line, doubt.Column);
            doubt.Line = start.Line;
            doubt.Column = start.Column;
            doubt.EndColumn = end.Column;
        }
    }
    return *m_Doubts;
}

} // namespace Formats
