#include "tests/support/ScoreText.h"

#include <algorithm>
#include <array>
#include <optional>
#include <sstream>
#include <vector>

namespace TestSupport {

namespace {

using Nvr::TreeNode;

// The values of the children that vary, in order, when the children are exactly those of the pattern: their
// labels, each with "=" and its value unless that may vary.
std::optional<std::vector<std::string>> Match(const TreeNode& node, const std::string& pattern) {
    std::vector<std::string> varying;
    std::istringstream words(pattern);
    int count = 0;
    for (std::string word; words >> word; ++count) {
        const TreeNode* const child = node.GetChild(count);
        const std::size_t equals = std::min(word.find('='), word.size());
        if (child == nullptr || child->GetLabel() != word.substr(0, equals).c_str())
            return std::nullopt;
        if (equals == word.size())
            varying.emplace_back(child->GetValue().CStr());
        else if (child->GetValue() != word.substr(equals + 1).c_str())
            return std::nullopt;
    }
    return count == node.GetChildCount() ? std::optional(varying) : std::nullopt;
}

const TreeNode* Follow(const TreeNode* node, std::initializer_list<const char*> path) {
    for (const char* label : path)
        node = node == nullptr ? nullptr : node->FindChild(label);
    return node;
}

std::string Value(const TreeNode& node, std::initializer_list<const char*> path) {
    const TreeNode* found = Follow(&node, path);
    return found == nullptr ? "" : found->GetValue().CStr();
}

std::vector<const TreeNode*> Children(const TreeNode* node) {
    std::vector<const TreeNode*> children;
    for (int i = 0; node != nullptr && i < node->GetChildCount(); ++i)
        children.push_back(node->GetChild(i));
    return children;
}

bool IsStyledString(const TreeNode* node, const char* style) {
    const auto parts = node == nullptr ? std::nullopt : Match(*node, "Type=StyledString Text TextStyle");
    return parts && (*parts)[1] == style;
}

std::string NoteText(const TreeNode& note, const std::vector<int>& tuning, bool& tied) {
    const auto values = Match(note, "Type=Note Diat Chrom2 Acc=0 StringNum Flags");
    if (!values || ((*values)[3] != "0" && (*values)[3] != "128"))
        return NodeText(note);
    tied = (*values)[3] == "128";
    const auto string = static_cast<std::size_t>(std::stoi((*values)[2]));
    const int pitch = std::stoi((*values)[1]);
    if (string >= tuning.size() || pitch < tuning[string])
        return NodeText(note);
    constexpr std::array<int, 12> kSteps{0, 0, 1, 2, 2, 3, 3, 4, 4, 5, 6, 6};
    const int midi = pitch / 2;
    if (std::stoi((*values)[0]) != midi / 12 * 7 + kSteps[static_cast<std::size_t>(midi % 12)])
        return NodeText(note);
    return std::to_string(string) + "/" + std::to_string((pitch - tuning[string]) / 2);
}

std::string NotesText(const TreeNode* notes, const std::vector<int>& tuning) {
    if (notes == nullptr)
        return " rest";
    std::string text;
    bool tied = false;
    for (const TreeNode* note : Children(notes))
        text += " " + NoteText(*note, tuning, tied);
    return text + (tied ? " tied" : "");
}

std::string ItemText(const TreeNode& item, const std::vector<int>& tuning) {
    const bool isRest = item.FindChild("Notes") == nullptr;
    if (const auto rest =
            Match(item, std::string("Type=NoteRest Sr Voices=1 Dx=0 Dy=0 Durn Trem=2 Artic=0 Flags=0") +
                            (isRest ? "" : " Notes=")))
        return (*rest)[0] + " +" + std::to_string(1 << std::stoi((*rest)[1])) + ":" +
               NotesText(item.FindChild("Notes"), tuning);
    if (const auto chord =
            Match(item, "Type=Text Sr Voices=15 Dx=24 Dy=256 StyledString= DrawAtStartOfSystem=False");
        chord && IsStyledString(item.FindChild("StyledString"), "text.staff.space.chordsymbol"))
        return (*chord)[0] + " chord \"" + Value(item, {"StyledString", "Text"}) + "\"";
    return NodeText(item);
}

std::string SystemItemText(const TreeNode& item) {
    if (Value(item, {"Type"}) == "SystemTextItem" &&
        IsStyledString(item.FindChild("StyledString"), "text.system.tempo") && Value(item, {"Sr"}) == "-1" &&
        Children(item.FindChild("YPositions")).size() == 5)
        return ", label \"" + Value(item, {"StyledString", "Text"}) + "\" (Dy " + Value(item, {"Dy"}) + ")";
    if (const auto time = Match(item, "Type=TimeSignature Sr=-1 Voices=15 Dx=0 Dy=0 Top LogUnitLength "
                                      "BeatGroups=0 TimeSignatureString Flags=7")) {
        const std::string unit = std::to_string(1024 >> std::stoi((*time)[1]));
        if ((*time)[2] == (*time)[0] + "\\n\\" + unit)
            return ", time " + (*time)[0] + "/" + unit;
    }
    return ", " + NodeText(item);
}

std::string SystemBarText(const TreeNode& bar) {
    std::string text;
    for (const TreeNode* child : Children(&bar)) {
        if (child->GetLabel() == "GapBelowStave")
            text += std::string(", gap ") + child->GetValue().CStr();
        else if (child->GetLabel() == "Items")
            for (const TreeNode* item : Children(child))
                text += SystemItemText(*item);
    }
    return text;
}

std::string SpacingText(const TreeNode& spacing, int number) {
    const auto values =
        Match(spacing, "Type=BarSpacing BarNum=" + std::to_string(number) + " BarLength Flags");
    return values ? (*values)[0] + " units, flags " + (*values)[1] : NodeText(spacing);
}

// The stave type that the lead-in bar names, and the row that was made for it, if any.
std::string StaveTypeText(const TreeNode* music, const TreeNode* leadIn, std::vector<int>& tuning) {
    std::string id;
    for (const TreeNode* item : Children(Follow(leadIn, {"Items"})))
        if (Value(*item, {"Type"}) == "StaveTypeChange")
            id = Value(*item, {"StaveType"});
    std::string text = "stave type " + id + "\n";
    for (const TreeNode* row : Children(Follow(music, {"StaveTypes"}))) {
        if (Value(*row, {"Id"}) != id)
            continue;
        for (const TreeNode* pitch : Children(row->FindChild("Pitches")))
            tuning.push_back(pitch->GetValueAsInt());
        if (id.find(".fretline.") != std::string::npos)
            text += "new stave type \"" + Value(*row, {"Name"}) + "\", " + Value(*row, {"StaveLines"}) +
                    " lines, Dy " + Value(*row, {"BarlineDy"}) + " and " + Value(*row, {"BarlineBottomDy"}) +
                    "\n";
    }
    return text;
}

const TreeNode* ChildAt(const TreeNode* node, int index) {
    return node == nullptr ? nullptr : node->GetChild(index);
}

} // namespace

std::string NodeText(const TreeNode& node) {
    std::string text = node.GetLabel().IsEmpty() ? "-" : node.GetLabel().CStr();
    if (!node.GetValue().IsEmpty())
        text += std::string("=\"") + node.GetValue().CStr() + "\"";
    if (node.GetChildCount() > 0) {
        text += " {";
        for (const TreeNode* child : Children(&node))
            text += " " + NodeText(*child);
        text += " }";
    }
    return text;
}

std::string ScoreText(const TreeNode& score) {
    const TreeNode* music = score.FindChild("Music");
    const TreeNode* stave = ChildAt(Follow(music, {"Staves"}), 0);
    const TreeNode* bars = Follow(stave, {"Bars"});
    std::vector<int> tuning;
    std::string text = StaveTypeText(music, ChildAt(bars, 0), tuning);
    if (const TreeNode* instrument = ChildAt(Follow(music, {"Instruments"}), 0))
        text += "instrument \"" + Value(*instrument, {"FullName", "Text"}) + "\", program " +
                Value(*stave, {"MIDIData", "Program"}) + "\n";
    for (int number = 1; ChildAt(bars, number) != nullptr; ++number) {
        const TreeNode* spacing = ChildAt(Follow(music, {"BarSpacings"}), number);
        const TreeNode* systemBar = ChildAt(Follow(music, {"SystemStave", "Bars"}), number);
        text += "bar " + std::to_string(number) + ": " +
                (spacing ? SpacingText(*spacing, number) : "no spacing") +
                (systemBar ? SystemBarText(*systemBar) : ", no system bar") + "\n";
        for (const TreeNode* item : Children(Follow(ChildAt(bars, number), {"Items"})))
            text += "  " + ItemText(*item, tuning) + "\n";
    }
    return text;
}

} // namespace TestSupport
