#pragma once

#include "Shared/Utils/tree/TreeNode.h"

#include <memory>

namespace Fretline {

/// How far rhythms are imported.
enum RhythmLevel : int {
    kRhythmsNever = 0,
    kRhythmsWhenIndicated = 1,
    kRhythmsAlways = 2,
};

/// The user's one option, kept in a small text tree. Children of the file that it does not know stay in it.
///
/// Owns the tree and the path. A missing, damaged or unreadable file gives the
/// default level, kRhythmsWhenIndicated, and no message.
class FretlineOptions {
public:
    /// Loads the file at `path`, when there is one.
    explicit FretlineOptions(const Nvr::String& path);
    FretlineOptions(const FretlineOptions&) = delete;
    FretlineOptions& operator=(const FretlineOptions&) = delete;

    /// Writes the file; a failure is reported and leaves the object as it is. A file that was there and could
    /// not be read is not written over, which is reported as a failure too.
    void Save();

    /// The stored number as it stands, also one outside RhythmLevel; 0 when it was no number.
    int GetRhythmLevel() const { return m_RhythmLevel; }
    void SetRhythmLevel(int level) { m_RhythmLevel = level; }

    /// The path of the options file in the folder that the host names.
    static Nvr::String PathIn(const Nvr::String& configFolder);

private:
    void Load();

    Nvr::String m_Path;
    std::unique_ptr<Nvr::TreeNodeRoot> m_Tree;
    bool m_IsUnreadable = false;
    int m_RhythmLevel = kRhythmsWhenIndicated;
};

} // namespace Fretline
