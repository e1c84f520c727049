#include "Shared/Gui/DialogState.h"

#include "Shared/Utils/AsciiChars.h"

namespace Nvr {

namespace {

bool IsButton(const DialogControl& control) {
    return control.Kind == DialogControlKind::PushButton ||
           control.Kind == DialogControlKind::DefaultPushButton;
}

} // namespace

DialogState::DialogState(const DialogLayout& layout)
    : m_Layout(layout), m_Checked(layout.Controls.size(), 0) {
    MoveToTabStop(1);
}

bool DialogState::IsChecked(int controlId) const {
    const int place = FindControl(controlId);
    return place >= 0 && m_Checked[static_cast<std::size_t>(place)] != 0;
}

void DialogState::SetChecked(int controlId, bool checked) {
    const int place = FindControl(controlId);
    if (place < 0)
        return;
    if (checked && At(place).Kind == DialogControlKind::RadioButton) {
        const auto [first, end] = GroupOf(place);
        for (int other = first; other < end; ++other)
            if (At(other).Kind == DialogControlKind::RadioButton)
                m_Checked[static_cast<std::size_t>(other)] = 0;
    }
    m_Checked[static_cast<std::size_t>(place)] = checked ? 1 : 0;
    // The group's ticked button is its tab stop, so the focus goes along while it is in the group.
    if (checked && m_Focus >= 0 && At(place).Kind == DialogControlKind::RadioButton &&
        At(m_Focus).Kind == DialogControlKind::RadioButton && GroupOf(place) == GroupOf(m_Focus))
        m_Focus = place;
}

void DialogState::MoveToTabStop(int step) {
    const int count = static_cast<int>(m_Layout.Controls.size());
    int place = m_Focus;
    // A radio button's stop is that of its group: the search goes on from there.
    if (place >= 0 && At(place).Kind == DialogControlKind::RadioButton)
        place = GroupOf(place).first;
    for (int i = 0; i < count; ++i) {
        place = place < 0 && step < 0 ? count - 1 : (place + step + count) % count;
        if (At(place).IsTabStop) {
            FocusOn(place);
            return;
        }
    }
}

void DialogState::FocusOn(int place) {
    m_Focus = place;
    if (At(place).Kind != DialogControlKind::RadioButton)
        return;
    const auto [first, end] = GroupOf(place);
    for (int other = first; other < end; ++other)
        if (m_Checked[static_cast<std::size_t>(other)] != 0)
            m_Focus = other;
}

void DialogState::MoveInGroup(int step) {
    if (m_Focus < 0)
        return;
    const auto [first, end] = GroupOf(m_Focus);
    const int size = end - first;
    m_Focus = first + (m_Focus - first + step + size) % size;
    if (At(m_Focus).Kind == DialogControlKind::RadioButton)
        SetChecked(At(m_Focus).Id, true);
}

int DialogState::UseMnemonic(char letter) {
    for (int place = 0; place < static_cast<int>(m_Layout.Controls.size()); ++place) {
        if (const char mnemonic = MnemonicOf(At(place).Text);
            mnemonic == '\0' || mnemonic != Ascii::ToLower(letter))
            continue;
        m_Focus = place;
        return UseControl(place);
    }
    return 0;
}

int DialogState::UseFocused() {
    return m_Focus < 0 ? 0 : UseControl(m_Focus);
}

int DialogState::UseControl(int place) {
    const DialogControl& control = At(place);
    if (control.Kind == DialogControlKind::RadioButton)
        SetChecked(control.Id, true);
    else if (control.Kind == DialogControlKind::CheckBox)
        SetChecked(control.Id, !IsChecked(control.Id));
    return control.Id;
}

int DialogState::GetEnterCommand() const {
    if (m_Focus >= 0 && IsButton(At(m_Focus)))
        return At(m_Focus).Id;
    for (const DialogControl& control : m_Layout.Controls)
        if (control.Kind == DialogControlKind::DefaultPushButton)
            return control.Id;
    return 0;
}

int DialogState::FindControl(int controlId) const {
    for (int place = 0; place < static_cast<int>(m_Layout.Controls.size()); ++place)
        if (At(place).Id == controlId)
            return place;
    return -1;
}

std::pair<int, int> DialogState::GroupOf(int place) const {
    int first = place;
    while (first > 0 && !At(first).StartsGroup)
        --first;
    int end = place + 1;
    while (end < static_cast<int>(m_Layout.Controls.size()) && !At(end).StartsGroup)
        ++end;
    return {first, end};
}

} // namespace Nvr
