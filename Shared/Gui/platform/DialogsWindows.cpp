#include "Shared/Gui/platform/Dialogs.h"

#include "Shared/Utils/ResId.h"

#include <windows.h>

#include <exception>

namespace Nvr::Platform {

namespace {

// What the dialog is ended with. The system itself gives 0 or -1 for a dialog that it could not make.
constexpr INT_PTR kEndedWithFalse = 1;
constexpr INT_PTR kEndedWithTrue = 2;
constexpr INT_PTR kEndedByException = 3;

// A resource's name as the system takes it: a text, or a number in the place of the pointer.
const char* SystemName(const ResId& id) {
    return id.GetName().Length() != 0 ? id.GetName().CStr() : MAKEINTRESOURCEA(static_cast<WORD>(id.GetId()));
}

bool HasStyle(HWND control, LONG style) {
    return (GetWindowLongA(control, GWL_STYLE) & style) != 0;
}

bool IsRadioButton(HWND control) {
    return (SendMessageA(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0;
}

HWND FirstOfGroup(HWND control) {
    HWND first = control;
    while (!HasStyle(first, WS_GROUP)) {
        HWND const before = GetWindow(first, GW_HWNDPREV);
        if (before == nullptr)
            break;
        first = before;
    }
    return first;
}

void ClearGroupOf(HWND control) {
    HWND other = FirstOfGroup(control);
    do {
        if (IsRadioButton(other))
            SendMessageA(other, BM_SETCHECK, BST_UNCHECKED, 0);
        other = GetWindow(other, GW_HWNDNEXT);
    } while (other != nullptr && !HasStyle(other, WS_GROUP));
}

// One run of a dialog of the system. No exception may pass through the system's own frames, so that of a
// handler is kept here until the dialog is gone.
class SystemDialog final : public DialogSession {
public:
    explicit SystemDialog(DialogEvents& events) : m_Events(events) {}

    std::optional<bool> Run(HINSTANCE module, const char* name, HWND parent) {
        const INT_PTR ended =
            DialogBoxParamA(module, name, parent, &OnMessage, reinterpret_cast<LPARAM>(this));
        if (m_Thrown)
            std::rethrow_exception(m_Thrown);
        if (ended != kEndedWithTrue && ended != kEndedWithFalse)
            return std::nullopt;
        return ended == kEndedWithTrue;
    }

    bool IsChecked(int controlId) const override {
        return IsDlgButtonChecked(m_Window, controlId) == BST_CHECKED;
    }

    void SetChecked(int controlId, bool checked) override {
        HWND const control = GetDlgItem(m_Window, controlId);
        if (control == nullptr)
            return;
        if (checked && IsRadioButton(control))
            ClearGroupOf(control);
        CheckDlgButton(m_Window, controlId, checked ? BST_CHECKED : BST_UNCHECKED);
    }

    DialogExtent GetExtent() const override {
        RECT place{};
        GetWindowRect(m_Window, &place);
        return {static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top)};
    }

    DialogExtent GetScreenExtent() const override {
        return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    }

    void MoveTo(int left, int top) override {
        SetWindowPos(m_Window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    void End(bool result) override { EndDialog(m_Window, result ? kEndedWithTrue : kEndedWithFalse); }

private:
    static INT_PTR CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITDIALOG) {
            SetWindowLongPtrA(window, DWLP_USER, lParam);
            reinterpret_cast<SystemDialog*>(lParam)->Open(window);
            // The system gives the focus to the first tab stop, which is the ticked button of its group.
            return TRUE;
        }
        // Messages come before the opening too.
        auto* const dialog = reinterpret_cast<SystemDialog*>(GetWindowLongPtrA(window, DWLP_USER));
        if (dialog == nullptr || message != WM_COMMAND || HIWORD(wParam) != BN_CLICKED)
            return FALSE;
        return dialog->Handle(LOWORD(wParam)) ? TRUE : FALSE;
    }

    void Open(HWND window) noexcept {
        m_Window = window;
        try {
            m_Events.OnDialogOpen(*this);
        } catch (...) {
            EndByException();
        }
    }

    // The default button's id is 1, and 2 is what the system makes of Escape and of closing the window.
    bool Handle(int controlId) noexcept {
        // A dialog that has been ended still hears of what was under way.
        if (m_Thrown)
            return false;
        try {
            return m_Events.OnDialogCommand(controlId);
        } catch (...) {
            EndByException();
            return true;
        }
    }

    void EndByException() noexcept {
        m_Thrown = std::current_exception();
        EndDialog(m_Window, kEndedByException);
    }

    DialogEvents& m_Events;
    HWND m_Window = nullptr;
    std::exception_ptr m_Thrown;
};

} // namespace

std::optional<bool> RunDialog(NativeWindow parent, const ResId& dialog, DialogEvents& events) {
    HINSTANCE const module = static_cast<HINSTANCE>(dialog.GetModule());
    // The system would take null for the module of the process, whose dialog may be quite another one.
    if (module == nullptr || FindResourceA(module, SystemName(dialog), RT_DIALOG) == nullptr)
        return std::nullopt;
    return SystemDialog(events).Run(module, SystemName(dialog), static_cast<HWND>(parent));
}

} // namespace Nvr::Platform
