#include "Projects/Tools/ResourceScript/DialogScript.h"

#include "Projects/Tools/ResourceScript/ScriptText.h"
#include "Shared/Utils/tree/TreeNodeIterator.h"

#include <stdexcept>
#include <utility>

namespace ResourceScript {

namespace {

using Nvr::TreeNode;

std::string Text(const Nvr::String& text) {
    return std::string(text.View());
}

const TreeNode& Child(const TreeNode& node, const char* label) {
    if (const TreeNode* const child = node.FindChild(label))
        return *child;
    throw std::runtime_error(Text(node.GetLabel()) + " has no " + label);
}

std::string QuotedChild(const TreeNode& node, const char* label) {
    return Quoted(Child(node, label).GetValue().View());
}

std::string Number(const TreeNode& node, const char* label) {
    const Nvr::String value = Child(node, label).GetValue();
    if (value.IsEmpty() || !value.IsDigits())
        throw std::runtime_error(std::string(label) + " is no number: " + Text(value));
    return Text(value);
}

std::string StyleOfKind(const Nvr::String& kind) {
    constexpr std::pair<const char*, const char*> kStyles[] = {
        {"RadioButton", "BS_AUTORADIOBUTTON"},
        {"CheckBox", "BS_AUTOCHECKBOX"},
        {"PushButton", "BS_PUSHBUTTON"},
        {"DefaultPushButton", "BS_DEFPUSHBUTTON"},
    };
    for (const auto& [label, style] : kStyles) {
        if (kind == label)
            return style;
    }
    throw std::runtime_error("no kind of control: " + Text(kind));
}

std::string Control(const TreeNode& node) {
    std::string style = StyleOfKind(node.GetLabel());
    if (node.GetChildValue("Group", false))
        style += " | WS_GROUP";
    if (node.GetChildValue("TabStop", false))
        style += " | WS_TABSTOP";
    std::string line = "    CONTROL ";
    line.append(QuotedChild(node, "Text")).append(", ").append(Number(node, "Id"));
    line.append(", \"Button\", ").append(style);
    for (const char* const place : {"X", "Y", "Width", "Height"})
        line.append(", ").append(Number(node, place));
    return line + "\n";
}

std::string DialogStyle(const TreeNode& layout) {
    std::string style = "WS_POPUP | WS_CAPTION | DS_SETFONT";
    if (Child(layout, "Frame").GetValue() == "modal")
        style += " | DS_MODALFRAME";
    if (layout.GetChildValue("SystemMenu", false))
        style += " | WS_SYSMENU";
    return style;
}

} // namespace

std::string DialogScript(const TreeNode& layout, int id) {
    std::string script = "#include <windows.h>\n\n";
    script.append(std::to_string(id)).append(" DIALOG 0, 0, ").append(Number(layout, "Width"));
    script.append(", ").append(Number(layout, "Height")).append("\n");
    script.append("STYLE ").append(DialogStyle(layout)).append("\n");
    script.append("CAPTION ").append(QuotedChild(layout, "Caption")).append("\n");
    script.append("FONT ").append(Number(layout, "FontSize"));
    script.append(", ").append(QuotedChild(layout, "Font")).append("\nBEGIN\n");
    Nvr::TreeNodeIterator controls(Child(layout, "Controls"));
    while (const TreeNode* const control = controls.Next())
        script += Control(*control);
    return script + "END\n";
}

} // namespace ResourceScript
