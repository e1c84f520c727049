#include "Shared/Utils/tree/TreeNode.h"

#include "Shared/Utils/NumberText.h"

namespace Nvr {

namespace {

// Shared by all nodes, as they would be if they were interned.
const String& BoolText(bool value) {
    static const String s_True("True");
    static const String s_False("False");
    return value ? s_True : s_False;
}

String FloatText(float value) {
    return String(FormatFixed(static_cast<double>(value)));
}

struct PartLabels {
    String X{"X"};
    String Y{"Y"};
    String TopLeft{"TopLeft"};
    String BottomRight{"BottomRight"};
};

const PartLabels& Labels() {
    static const PartLabels s_Labels;
    return s_Labels;
}

} // namespace

TreeNode::TreeNode(const String& label, const char* value) : TreeNode(label, String(value)) {}

TreeNode::TreeNode(const String& label, bool value) : TreeNode(label) {
    SetValue(value);
}

TreeNode::TreeNode(const String& label, int value) : TreeNode(label, String(IntegerText(value).View())) {}

TreeNode::TreeNode(const String& label, long value) : TreeNode(label, String(IntegerText(value).View())) {}

TreeNode::TreeNode(const String& label, float value) : TreeNode(label, FloatText(value)) {}

TreeNode::TreeNode(const String& label, const TreePoint& value) : TreeNode(label) {
    SetValue(value);
}

TreeNode::TreeNode(const String& label, const TreeRectangle& value) : TreeNode(label) {
    SetValue(value);
}

int TreeNode::GetValueAsInt() const {
    return ParseInt(m_Value.View());
}

long TreeNode::GetValueAsLong() const {
    return ParseLong(m_Value.View());
}

float TreeNode::GetValueAsFloat() const {
    return ParseFloat(m_Value.View());
}

bool TreeNode::GetValueAsBool() const {
    return m_Value.EqualsIgnoreCase(BoolText(true)) || m_Value == "1";
}

TreePoint TreeNode::GetValueAsPoint() const {
    return {GetChildValue(Labels().X, 0), GetChildValue(Labels().Y, 0)};
}

TreeRectangle TreeNode::GetValueAsRectangle() const {
    return {GetChildValue(Labels().TopLeft, TreePoint()), GetChildValue(Labels().BottomRight, TreePoint())};
}

const String& TreeNode::GetChildValue(const String& label, const String& defaultValue) const {
    const TreeNode* const child = FindChild(label);
    return child != nullptr ? child->m_Value : defaultValue;
}

int TreeNode::GetChildValue(const String& label, int defaultValue) const {
    const TreeNode* const child = FindChild(label);
    return child != nullptr ? child->GetValueAsInt() : defaultValue;
}

long TreeNode::GetChildValue(const String& label, long defaultValue) const {
    const TreeNode* const child = FindChild(label);
    return child != nullptr ? child->GetValueAsLong() : defaultValue;
}

float TreeNode::GetChildValue(const String& label, float defaultValue) const {
    const TreeNode* const child = FindChild(label);
    return child != nullptr ? child->GetValueAsFloat() : defaultValue;
}

bool TreeNode::GetChildValue(const String& label, bool defaultValue) const {
    const TreeNode* const child = FindChild(label);
    return child != nullptr ? child->GetValueAsBool() : defaultValue;
}

TreePoint TreeNode::GetChildValue(const String& label, const TreePoint& defaultValue) const {
    const TreeNode* const child = FindChild(label);
    return child != nullptr ? child->GetValueAsPoint() : defaultValue;
}

TreeRectangle TreeNode::GetChildValue(const String& label, const TreeRectangle& defaultValue) const {
    const TreeNode* const child = FindChild(label);
    return child != nullptr ? child->GetValueAsRectangle() : defaultValue;
}

const String& TreeNode::GetChildValueAtIndex(int index) const {
    const TreeNode* const child = GetChild(index);
    return child != nullptr ? child->m_Value : String::Empty();
}

int TreeNode::GetChildIntAtIndex(int index) const {
    const TreeNode* const child = GetChild(index);
    return child != nullptr ? child->GetValueAsInt() : 0;
}

void TreeNode::SetLabel(const String& label) {
    String interned = label;
    InternString(interned);
    m_Label = interned;
}

void TreeNode::SetValue(const String& value) {
    String interned = value;
    InternString(interned);
    m_Value = interned;
}

void TreeNode::SetValue(const char* value) {
    SetValue(String(value));
}

void TreeNode::SetValue(int value) {
    SetValue(String(IntegerText(value).View()));
}

void TreeNode::SetValue(long value) {
    SetValue(String(IntegerText(value).View()));
}

void TreeNode::SetValue(float value) {
    SetValue(FloatText(value));
}

void TreeNode::SetValue(bool value) {
    m_Value = BoolText(value);
}

void TreeNode::SetValue(const TreePoint& value) {
    NeedChild(Labels().X).SetValue(value.X);
    NeedChild(Labels().Y).SetValue(value.Y);
}

void TreeNode::SetValue(const TreeRectangle& value) {
    NeedChild(Labels().TopLeft).SetValue(value.TopLeft);
    NeedChild(Labels().BottomRight).SetValue(value.BottomRight);
}

TreeNode& TreeNode::NeedChild(const String& label) {
    if (TreeNode* const present = FindChild(label))
        return *present;
    TreeNode* const added = new TreeNode(label);
    AddChild(added);
    return *added;
}

} // namespace Nvr
