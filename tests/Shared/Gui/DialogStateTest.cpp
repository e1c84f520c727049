#include "Shared/Gui/DialogState.h"

#include <gtest/gtest.h>

namespace {

using Nvr::DialogControlKind;
using Nvr::DialogLayout;
using Nvr::DialogState;

DialogLayout Layout() {
    DialogLayout layout;
    const auto add = [&](int id, DialogControlKind kind, const char* text, bool group, bool stop) {
        layout.Controls.push_back({id, kind, text, 0, 0, 0, 0, group, stop});
    };
    add(10, DialogControlKind::RadioButton, "&First", true, true);
    add(11, DialogControlKind::RadioButton, "&Second", false, false);
    add(12, DialogControlKind::RadioButton, "T&hird", false, false);
    add(20, DialogControlKind::CheckBox, "&Box", true, true);
    add(2, DialogControlKind::PushButton, "Cancel", false, true);
    add(1, DialogControlKind::DefaultPushButton, "OK", false, true);
    return layout;
}

struct KeyCase {
    const char* Keys;
    int FocusedId;
    int TickedRadio;
    bool BoxIsTicked;
    int LastCommand;
    const char* Why;
};

// t and T: Tab and Shift-Tab; + and -: arrows; blank: space bar; other letters: themselves. Second starts
// ticked.
TEST(DialogState, FollowsTheKeysThatPeopleExpect) {
    const KeyCase rows[] = {
        {"", 11, 11, false, 0, "the group's ticked button has the focus"},
        {"+", 12, 12, false, 0, "an arrow moves and ticks"},
        {"++", 10, 10, false, 0, "around the end of the group"},
        {"--", 12, 12, false, 0, "around its start"},
        {"t", 20, 11, false, 0, "a radio group is one stop"},
        {"t ", 20, 11, true, 20, "the space bar ticks"},
        {"t  ", 20, 11, false, 20, "and clears"},
        {"tttt", 11, 11, false, 0, "Tab goes around the end"},
        {"T", 1, 11, false, 0, "Shift-Tab goes around the start"},
        {"TTTT", 11, 11, false, 0, "back to the ticked button, not to the first"},
        {"b", 20, 11, true, 20, "an underlined letter ticks"},
        {"H", 12, 12, false, 12, "in any case, wherever it is underlined"},
        {"z", 11, 11, false, 0, "a letter of no control does nothing"},
        {"tt ", 2, 11, false, 2, "the space bar presses a button"},
    };
    const DialogLayout layout = Layout();
    for (const KeyCase& row : rows) {
        DialogState state(layout);
        state.SetChecked(11, true);
        int command = 0;
        for (const char* key = row.Keys; *key != '\0'; ++key) {
            if (*key == 't' || *key == 'T')
                state.MoveToTabStop(*key == 't' ? 1 : -1);
            else if (*key == '+' || *key == '-')
                state.MoveInGroup(*key == '+' ? 1 : -1);
            else
                command = *key == ' ' ? state.UseFocused() : state.UseMnemonic(*key);
        }
        EXPECT_EQ(row.FocusedId, layout.Controls[static_cast<std::size_t>(state.GetFocus())].Id) << row.Why;
        for (const int id : {10, 11, 12})
            EXPECT_EQ(id == row.TickedRadio, state.IsChecked(id)) << row.Why << ": " << id;
        EXPECT_EQ(row.BoxIsTicked, state.IsChecked(20)) << row.Why;
        EXPECT_EQ(row.LastCommand, command) << row.Why;
    }
}

TEST(DialogState, EnterIsTheFocusedButtonElseTheDefaultOne) {
    const DialogLayout layout = Layout();
    DialogState state(layout);
    EXPECT_EQ(1, state.GetEnterCommand());
    state.MoveToTabStop(-1);
    state.MoveToTabStop(-1);
    EXPECT_EQ(2, state.GetEnterCommand());
    const DialogLayout empty;
    DialogState nothing(empty);
    EXPECT_EQ(0, nothing.GetEnterCommand());
    nothing.MoveToTabStop(1);
    nothing.MoveInGroup(1);
    EXPECT_EQ(0, nothing.UseFocused());
}

} // namespace
