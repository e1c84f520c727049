#include "Shared/Gui/DialogLayout.h"

#include "Shared/Utils/AsciiChars.h"
#include "Shared/Utils/platform/Resources.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "Shared/Utils/tree/TreeNodeIterator.h"

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <utility>

namespace Nvr {

namespace {

constexpr const char* kResourceType = "DIALOG";
constexpr char kMnemonicMark = '&';

constexpr std::array<std::pair<const char*, DialogControlKind>, 4> kKinds{{
    {"RadioButton", DialogControlKind::RadioButton},
    {"CheckBox", DialogControlKind::CheckBox},
    {"PushButton", DialogControlKind::PushButton},
    {"DefaultPushButton", DialogControlKind::DefaultPushButton},
}};

std::optional<DialogControl> ReadControl(const TreeNode& node) {
    for (const auto& [label, kind] : kKinds) {
        if (!(node.GetLabel() == label))
            continue;
        DialogControl control;
        control.Id = node.GetChildValue("Id", 0);
        control.Kind = kind;
        control.Text = node.GetChildValue("Text", String::Empty()).CStr();
        control.X = node.GetChildValue("X", 0);
        control.Y = node.GetChildValue("Y", 0);
        control.Width = node.GetChildValue("Width", 0);
        control.Height = node.GetChildValue("Height", 0);
        control.StartsGroup = node.GetChildValue("Group", false);
        control.IsTabStop = node.GetChildValue("TabStop", false);
        return control;
    }
    return std::nullopt;
}

std::optional<DialogLayout> ReadLayout(const TreeNode& root) {
    const TreeNode* controls = root.FindChild("Controls");
    if (!(root.GetLabel() == "Dialog") || controls == nullptr)
        return std::nullopt;
    DialogLayout layout;
    layout.Caption = root.GetChildValue("Caption", String::Empty()).CStr();
    layout.Width = root.GetChildValue("Width", 0);
    layout.Height = root.GetChildValue("Height", 0);
    TreeNodeIterator nodes(*controls);
    while (const TreeNode* node = nodes.Next()) {
        auto control = ReadControl(*node);
        if (!control)
            return std::nullopt;
        layout.Controls.push_back(std::move(*control));
    }
    return layout;
}

} // namespace

std::optional<DialogLayout> DialogLayout::Load(const ResId& id) {
    const std::span<const std::byte> bytes =
        Platform::FindDataResource(id.GetModule(), kResourceType, id.GetName().View(), id.GetId());
    if (bytes.data() == nullptr)
        return std::nullopt;
    const std::unique_ptr<TreeNodeRoot> root(TreeNode::LoadFromMemory(bytes.data(), bytes.size()));
    return root == nullptr ? std::nullopt : ReadLayout(*root);
}

char MnemonicOf(const std::string& text) {
    const std::size_t mark = text.find(kMnemonicMark);
    return mark == std::string::npos || mark + 1 == text.size() ? '\0' : Ascii::ToLower(text[mark + 1]);
}

std::string TextWithoutMark(const std::string& text) {
    std::string plain = text;
    if (const std::size_t mark = plain.find(kMnemonicMark); mark != std::string::npos)
        plain.erase(mark, 1);
    return plain;
}

} // namespace Nvr
