#include "Projects/Fretline/shell/ConvertFile.h"

#include "Projects/Fretline/score/ScoreAccess.h"
#include "Projects/Fretline/score/TabConverter.h"
#include "Projects/Fretline/shell/FretlineOptions.h"
#include "Projects/Fretline/shell/PluginState.h"
#include "Projects/Fretline/shell/TemporaryFile.h"
#include "Shared/Utils/ResId.h"
#include "Shared/Utils/TempFiles.h"
#include "Shared/Utils/tree/TreeNode.h"

#include <memory>

namespace Fretline {

using Nvr::String;

namespace {

constexpr int kTemplateResource = 100;

bool ConvertInto(const String& sourcePath, const String& tempPath, const String& configFolder) {
    const String optionsPath = FretlineOptions::PathIn(configFolder);
    const FretlineOptions options(optionsPath);
    const std::shared_ptr<Nvr::PluginOutput> output = TakeOutput();
    const std::unique_ptr<Nvr::TreeNodeRoot> score(Nvr::ResId(kTemplateResource).LoadFromResource());
    if (score == nullptr)
        return false;
    FlattenPartMaps(score.get());
    return TabConverter(output.get(), &options).RunConversion(sourcePath, score.get(), tempPath);
}

} // namespace

int ConvertFile(const String& sourcePath, String& tempPath, const String& configFolder) {
    Nvr::DiskFile scoreFile = Nvr::CreateTempFile();
    // As long as it is there, nobody else is given its name, and so the name of the score file.
    const String reservedPath = scoreFile.GetPath();
    const TemporaryFile reserved(reservedPath);
    scoreFile.ChangeExtension("nvf", false, false);
    tempPath = scoreFile.GetPath();
    Nvr::ClearNodeStringTable();
    const bool hasScore = ConvertInto(sourcePath, tempPath, configFolder);
    Nvr::ClearNodeStringTable();
    return hasScore ? 1 : 0;
}

} // namespace Fretline
