#include "Projects/Formats/Conversion.h"

#include "Projects/TabText/Markings.h"

namespace Formats {

std::optional<Conversion> Conversion::Of(std::string scoreBytes, std::string title, std::string& why) {
    Conversion conversion;
    conversion.Tree.reset(Nvr::TreeNode::LoadFromMemory(scoreBytes.data(), scoreBytes.size()));
    if (conversion.Tree == nullptr) {
        why = "it is damaged, or no score file";
        return std::nullopt;
    }
    std::optional<Score::ScoreModel> model = Score::ScoreModel::Read(*conversion.Tree, why);
    if (!model)
        return std::nullopt;
    conversion.Title = std::move(title);
    conversion.ScoreBytes = std::move(scoreBytes);
    conversion.Model = std::move(*model);
    return conversion;
}

void Conversion::JoinText(const TabText::TabReading& reading) {
    TabText::JoinMarkings(reading, TabText::ReadMarkings(reading), Model);
}

} // namespace Formats
