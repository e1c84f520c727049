#pragma once

#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/tree/TreeNode.h"

#include <initializer_list>

namespace Fretline {

/// The sections of a score by which it is addressed; SectionLabel gives their labels.
enum ScoreSection : int {
    SectionBars = 0,
    SectionItems = 1,
    SectionStaves = 2,
    SectionBarlines = 3,
    SectionNotes = 4,
    SectionInstruments = 5,
    SectionBarSpacings = 6,
    SectionBrackets = 7,
    SectionMidPoints = 8,
};

/// The label of a section; empty for a number outside 0 to 8.
Nvr::String SectionLabel(int section);

/// The section of `parent`, made at the end of its children when it is not there.
Nvr::TreeNode* GetSection(Nvr::TreeNode* parent, ScoreSection section);

/// A child of `parent` with a label and a "Type". With `reuse`, the first child with that label (not empty)
/// is taken, and its "Type" gets the new value; otherwise a new child is appended. An empty `type` writes no
/// "Type". Null, and nothing done, for a null parent.
Nvr::TreeNode* AddTypedChild(Nvr::TreeNode* parent, const Nvr::String& label, const Nvr::String& type,
                             bool reuse);

/// Append a new child, never looking for an existing one; give it back, or null for a null parent.
Nvr::TreeNode* AddStringChild(Nvr::TreeNode* parent, const Nvr::String& label, const char* value);
Nvr::TreeNode* AddIntChild(Nvr::TreeNode* parent, const Nvr::String& label, int value);
Nvr::TreeNode* AddBoolChild(Nvr::TreeNode* parent, const Nvr::String& label, bool value);

/// The same for labels and values that are looked up once.
Nvr::TreeNode* AddStringChild(Nvr::TreeNode* parent, const Nvr::FixedString& label, const Nvr::String& value);
Nvr::TreeNode* AddStringChild(Nvr::TreeNode* parent, const Nvr::FixedString& label,
                              const Nvr::FixedString& value);
Nvr::TreeNode* AddBoolChild(Nvr::TreeNode* parent, const Nvr::FixedString& label, bool value);
/// Appends a child for each of the numbers; nothing for a null parent.
void AddIntChildren(Nvr::TreeNode* parent, std::initializer_list<Nvr::TreeNumber> numbers);
/// Appends a child with a label and a "Type", and with room for `childCount` children in all.
Nvr::TreeNode* AddTypedChild(Nvr::TreeNode* parent, const Nvr::FixedString& label,
                             const Nvr::FixedString& type, int childCount);

/// Give the first child with that label the new value, or append a new child; give it back, or null for a
/// null parent.
Nvr::TreeNode* SetStringChild(Nvr::TreeNode* parent, const Nvr::String& label, const char* value);
Nvr::TreeNode* SetIntChild(Nvr::TreeNode* parent, const Nvr::String& label, int value);
Nvr::TreeNode* SetBoolChild(Nvr::TreeNode* parent, const Nvr::String& label, bool value);

/// What VisitTree calls for each node; false ends the walk.
using TreeVisitor = bool (*)(Nvr::TreeNode* node, Nvr::TreeNode* parent, int depth);

/// Walks the tree in pre-order; `visitor` runs before a node's children are listed, so that children it puts
/// in place are visited too. Gives the last result of the visitor. No recursion.
bool VisitTree(Nvr::TreeNode* node, TreeVisitor visitor, Nvr::TreeNode* parent, int depth);

/// Dissolves every part map of a score into the plain value of the full score.
void FlattenPartMaps(Nvr::TreeNode* root);

} // namespace Fretline
