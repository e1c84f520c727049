#include "Projects/Formats/Conversion.h"

namespace Formats {

std::optional<Conversion> Conversion::Of(std::string scoreBytes, const std::filesystem::path& source,
                                         std::string& why) {
    Conversion conversion;
    conversion.Tree.reset(Nvr::TreeNode::LoadFromMemory(scoreBytes.data(), scoreBytes.size()));
    if (conversion.Tree == nullptr) {
        why = "it is damaged, or no score file";
        return std::nullopt;
    }
    std::optional<Score::ScoreModel> model = Score::ScoreModel::Read(*conversion.Tree, why);
    if (!model)
        return std::nullopt;
    conversion.Source = source.string();
    conversion.Title = source.stem().string();
    conversion.ScoreBytes = std::move(scoreBytes);
    conversion.m_Music = std::move(*model);
    return conversion;
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

const TabText::Markings& Conversion::GetMarkings() const {
    if (!m_Markings) {
        const TabText::TabReading* reading = GetReading();
        m_Markings = reading == nullptr ? TabText::Markings() : TabText::ReadMarkings(*reading);
    }
    return *m_Markings;
}

const std::vector<TabText::Doubt>& Conversion::GetDoubts() const {
    if (!m_Doubts) {
        const TabText::TabReading* reading = GetReading();
        m_Doubts = reading == nullptr ? std::vector<TabText::Doubt>() : TabText::FindDoubts(*reading);
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
