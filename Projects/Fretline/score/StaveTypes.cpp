#include "Projects/Fretline/score/ScoreAccess.h"
#include "Projects/Fretline/score/ScoreHolder.h"
#include "Shared/Utils/tree/TreeNodeIterator.h"

namespace Fretline {

using Nvr::String;
using Nvr::TreeNode;
using Pitches = Nvr::TVAList<int>;

namespace {

constexpr int kTabCategory = 2;

TreeNode* FindStaveTypes(const ScoreHolder& score) {
    TreeNode* const music = score.Music();
    return music != nullptr ? music->FindChild("StaveTypes") : nullptr;
}

bool HasPitches(const TreeNode& staveType, const Pitches& pitches) {
    const TreeNode* const strings = staveType.FindChild("Pitches");
    if (strings == nullptr || strings->GetChildCount() != pitches.Count())
        return false;
    for (int index = 0; index < pitches.Count(); ++index)
        if (strings->GetChildIntAtIndex(index) != pitches.GetAt(index))
            return false;
    return true;
}

bool IsTabStaveFor(const TreeNode& staveType, const Pitches& pitches, bool hasRhythms) {
    return staveType.GetChildValue("Category", 0) == kTabCategory && HasPitches(staveType, pitches) &&
           staveType.GetChildValue("ShowRhythms", false) == hasRhythms;
}

const TreeNode* FindRowById(const TreeNode& staveTypes, const String& id) {
    Nvr::TreeNodeIterator rows(staveTypes);
    while (const TreeNode* const row = rows.Next()) {
        const TreeNode* const key = row->FindChild("Id");
        if (key != nullptr && key->GetValue() == id)
            return row;
    }
    return nullptr;
}

void SetHeight(TreeNode* staveType, int stringCount) {
    const int separation = staveType->GetChildValue("StaveLineSeparation", 0);
    const int halfHeight = (stringCount - 1) * separation / 2;
    SetIntChild(staveType, "BarlineDy", halfHeight);
    SetIntChild(staveType, "BarlineBottomDy", halfHeight);
}

void SetStrings(TreeNode* staveType, const Pitches& pitches) {
    TreeNode* const strings = staveType->FindChild("Pitches");
    if (strings == nullptr)
        return;
    strings->ClearChildren();
    for (const int pitch : pitches)
        AddIntChild(strings, String(), pitch);
    SetIntChild(staveType, "StaveLines", pitches.Count());
}

} // namespace

bool ScoreHolder::FindStaveType(const Pitches& pitches, bool hasRhythms, String& id) const {
    id = String();
    const TreeNode* const staveTypes = FindStaveTypes(*this);
    if (staveTypes == nullptr)
        return false;
    Nvr::TreeNodeIterator rows(*staveTypes);
    while (const TreeNode* const row = rows.Next()) {
        if (IsTabStaveFor(*row, pitches, hasRhythms)) {
            id = row->GetChildValue("Id", String::Empty());
            return true;
        }
    }
    return false;
}

bool ScoreHolder::CreateStaveType(const String& id, const String& name, const Pitches& pitches,
                                  const String& baseId) {
    TreeNode* const staveTypes = FindStaveTypes(*this);
    if (staveTypes == nullptr)
        return false;
    const TreeNode* const base = FindRowById(*staveTypes, baseId);
    if (base == nullptr)
        return false;
    TreeNode* const created = AddTypedChild(staveTypes, String(), "StaveType", false);
    created->ClearChildren();
    created->CopyChildrenFrom(*base);
    SetStringChild(created, "Name", name.CStr());
    SetStringChild(created, "Id", id.CStr());
    SetHeight(created, pitches.Count());
    SetStrings(created, pitches);
    return true;
}

} // namespace Fretline
