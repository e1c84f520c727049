#include "Projects/Score/ModelMarks.h"

#include <algorithm>

namespace Score {

const ModelTechnique* FindTechnique(const std::vector<ModelTechnique>& techniques, Technique kind) {
    const auto found = std::find_if(techniques.begin(), techniques.end(),
                                    [&](const ModelTechnique& technique) { return technique.Kind == kind; });
    return found == techniques.end() ? nullptr : &*found;
}

} // namespace Score
