#include "Projects/Fretline/score/ScoreHolder.h"

namespace Fretline {

bool ScoreHolder::SetRoot(Nvr::TreeNode* node) {
    m_Root = node != nullptr ? node : &m_EmptyRoot;
    return node != nullptr;
}

Nvr::TreeNode* ScoreHolder::Music() const {
    return m_Root->FindChild("Music");
}

bool ScoreHolder::Save(const Nvr::String& path, int encoding) const {
    constexpr bool kBinary = true;
    constexpr bool kUnicode = true;
    return m_Root->SaveToFile(path, kBinary, kUnicode, encoding);
}

} // namespace Fretline
