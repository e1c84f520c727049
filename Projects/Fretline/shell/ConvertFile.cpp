#include "Projects/Fretline/shell/ConvertFile.h"

#include "Projects/Fretline/resources/ResourceNumbers.h"
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

// A name that nobody can predict is taken only by somebody who watches the folder and is quick.
constexpr int kReservationTries = 10;

// Makes the score file: the name of the reserved file with another extension. The path stays empty when that
// is taken, be it by a link.
void MakeScoreFile(const Nvr::DiskFile& reserved, String& path) {
    Nvr::DiskFile score = reserved;
    score.ChangeExtension("nvf", false, false);
    const String scorePath = score.GetPath();
    if (score.CreateNew())
        path = scorePath;
}

bool ConvertInto(const String& sourcePath, const String& tempPath, const String& configFolder) {
    const FretlineOptions options(FretlineOptions::PathIn(configFolder));
    const std::shared_ptr<Nvr::PluginOutput> output = OutputOrStandIn();
    const std::unique_ptr<Nvr::TreeNodeRoot> score(Nvr::ResId(kTemplateResource).LoadFromResource());
    if (score == nullptr)
        return false;
    FlattenPartMaps(score.get());
    return TabConverter(output.get(), &options).RunConversion(sourcePath, score.get(), tempPath);
}

} // namespace

int ConvertFile(const String& sourcePath, String& tempPath, const String& configFolder) {
    TemporaryFile reserved;
    tempPath = String();
    for (int i = 0; i < kReservationTries && tempPath.IsEmpty(); ++i) {
        reserved.Delete();
        reserved.Path() = String();
        const Nvr::DiskFile file = Nvr::CreateTempFile(reserved.Path());
        if (reserved.Path().IsEmpty())
            break;
        MakeScoreFile(file, tempPath);
    }
    Nvr::ClearNodeStringTable();
    const bool hasScore = ConvertInto(sourcePath, tempPath, configFolder);
    Nvr::ClearNodeStringTable();
    return hasScore ? 1 : 0;
}

} // namespace Fretline
