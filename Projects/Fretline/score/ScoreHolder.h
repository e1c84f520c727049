#pragma once

#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/VAList.h"
#include "Shared/Utils/tree/TreeNode.h"

namespace Fretline {

/// A score as the conversion sees it: the root of its tree, never null. Borrows a tree that is handed in.
class ScoreHolder {
public:
    ScoreHolder() : m_Root(&m_EmptyRoot) {}
    ScoreHolder(const ScoreHolder&) = delete;
    ScoreHolder& operator=(const ScoreHolder&) = delete;

    /// False for null, which puts the holder's own empty node in place.
    bool SetRoot(Nvr::TreeNode* node);
    /// The root's child "Music", or null.
    Nvr::TreeNode* Music() const;
    /// Writes the binary form with UTF-16 strings; false, with a report, when that fails.
    bool Save(const Nvr::String& path, int encoding) const;

    /// True when a tab stave type has exactly these pitches and shows rhythms as asked; `id` is then its
    /// "Id", else empty.
    bool FindStaveType(const Nvr::TVAList<int>& pitches, bool hasRhythms, Nvr::String& id) const;
    /// Adds a copy of the stave type `baseId` with the new key, name and strings. False, and nothing
    /// changed, when the score has no such base.
    bool CreateStaveType(const Nvr::String& id, const Nvr::String& name, const Nvr::TVAList<int>& pitches,
                         const Nvr::String& baseId);

private:
    Nvr::TreeNode* m_Root;
    Nvr::TreeNode m_EmptyRoot;
};

} // namespace Fretline
