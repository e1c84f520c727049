#include "Shared/Utils/tree/TreeNode.h"

#include "Shared/Utils/NumberText.h"
#include "Shared/Utils/tree/FixedString.h"
#include "Shared/Utils/tree/NodeStringTable.h"
#include "Shared/Utils/tree/TreeNodeList.h"

#include <memory>

namespace Nvr {

namespace {

constinit const FixedString kTrue("True");
constinit const FixedString kFalse("False");
constinit const FixedString kX("X");
constinit const FixedString kY("Y");
constinit const FixedString kTopLeft("TopLeft");
constinit const FixedString kBottomRight("BottomRight");

const String& BoolText(bool value) {
    return (value ? kTrue : kFalse).Interned();
}

const String& NumberText(long value) {
    return NodeStringTable::Shared().NumberText(value);
}

String FloatText(float value) {
    return String(FormatFixed(static_cast<double>(value)));
}

} // namespace

TreeNode::TreeNode(const String& label, const char* value) : TreeNode(label, String(value)) {}

TreeNode::TreeNode(const String& label, bool value) : TreeNode(label) {
    SetValue(value);
}

TreeNode::TreeNode(const String& label, int value) : TreeNode(label, long{value}) {}

TreeNode::TreeNode(const String& label, long value) : TreeNode(label) {
    SetValue(value);
}

TreeNode::TreeNode(const String& label, float value) : TreeNode(label, FloatText(value)) {}

TreeNode::TreeNode(const FixedString& label, const String& value)
    : TreeNode(label.Interned(), value, AreInterned()) {
    InternString(m_Value);
}

TreeNode::TreeNode(const FixedString& label, bool value)
    : TreeNode(label.Interned(), BoolText(value), AreInterned()) {}

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
    return m_Value.EqualsIgnoreCase(kTrue.Text()) || m_Value == "1";
}

TreePoint TreeNode::GetValueAsPoint() const {
    return {GetChildValue(kX.Interned(), 0), GetChildValue(kY.Interned(), 0)};
}

TreeRectangle TreeNode::GetValueAsRectangle() const {
    return {GetChildValue(kTopLeft.Interned(), TreePoint()),
            GetChildValue(kBottomRight.Interned(), TreePoint())};
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
    SetValue(long{value});
}

void TreeNode::SetValue(long value) {
    m_Value = NumberText(value);
}

void TreeNode::SetValue(float value) {
    SetValue(FloatText(value));
}

void TreeNode::SetValue(bool value) {
    m_Value = BoolText(value);
}

void TreeNode::SetValue(const TreePoint& value) {
    NeedChild(kX).SetValue(value.X);
    NeedChild(kY).SetValue(value.Y);
}

void TreeNode::SetValue(const TreeRectangle& value) {
    NeedChild(kTopLeft).SetValue(value.TopLeft);
    NeedChild(kBottomRight).SetValue(value.BottomRight);
}

void TreeNode::AddNumbers(std::span<const TreeNumber> numbers) {
    TreeNodeList& children = NeedChildren();
    NodeStringTable& table = NodeStringTable::Shared();
    for (const TreeNumber& number : numbers) {
        std::unique_ptr<TreeNode> child(
            new TreeNode(number.Label.Interned(), table.NumberText(number.Value), AreInterned()));
        children.Add(child.get());
        static_cast<void>(child.release());
    }
}

TreeNode& TreeNode::NeedChild(const FixedString& label) {
    if (TreeNode* const present = FindChild(label.Interned()))
        return *present;
    TreeNode* const added = new TreeNode(label);
    AddChild(added);
    return *added;
}

} // namespace Nvr
