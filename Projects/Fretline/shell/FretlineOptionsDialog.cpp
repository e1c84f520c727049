#include "Projects/Fretline/shell/FretlineOptionsDialog.h"

#include "Projects/Fretline/resources/ResourceNumbers.h"
#include "Projects/Fretline/shell/FretlineOptions.h"

namespace Fretline {

namespace {

constexpr int kOk = 1;
constexpr int kCancel = 2;
constexpr int kDontShowAgain = 102;
constexpr int kAlways = 1000;
constexpr int kWhenIndicated = 1001;
constexpr int kNever = 1002;

// 0 for a level that no button stands for.
int ButtonOf(int rhythmLevel) {
    switch (rhythmLevel) {
    case kRhythmsNever:
        return kNever;
    case kRhythmsWhenIndicated:
        return kWhenIndicated;
    case kRhythmsAlways:
        return kAlways;
    default:
        return 0;
    }
}

} // namespace

FretlineOptionsDialog::FretlineOptionsDialog(const Nvr::ManagedWindow& parent, FretlineOptions& options)
    : GuiDialog(parent, Nvr::ResId(kDialogResource)), m_Options(options) {}

void FretlineOptionsDialog::OnOpen() {
    const Nvr::Platform::DialogExtent screen = GetScreenExtent();
    const Nvr::Platform::DialogExtent dialog = GetExtent();
    MoveTo(screen.Width / 2 - dialog.Width / 2, screen.Height / 2 - dialog.Height / 2);
    if (const int button = ButtonOf(m_Options.GetRhythmLevel()); button != 0)
        SetChecked(button, true);
    m_Options.Save();
}

bool FretlineOptionsDialog::OnCommand(int controlId) {
    if (controlId == kOk) {
        if (IsChecked(kAlways))
            m_Options.SetRhythmLevel(kRhythmsAlways);
        else if (IsChecked(kWhenIndicated))
            m_Options.SetRhythmLevel(kRhythmsWhenIndicated);
        else
            m_Options.SetRhythmLevel(kRhythmsNever);
        m_IsNotToBeShownAgain = IsChecked(kDontShowAgain);
        End(true);
    } else if (controlId == kCancel) {
        End(false);
    }
    return false;
}

} // namespace Fretline
