#pragma once

#include "Shared/Gui/platform/Dialogs.h"

namespace Nvr {

/// A window of the platform, by its native handle, which it borrows. Null is no window.
class GuiWindow {
public:
    explicit GuiWindow(Platform::NativeWindow handle = nullptr) : m_Handle(handle) {}
    virtual ~GuiWindow() = default;
    GuiWindow(const GuiWindow&) = delete;
    GuiWindow& operator=(const GuiWindow&) = delete;

    Platform::NativeWindow GetHandle() const { return m_Handle; }

private:
    Platform::NativeWindow m_Handle;
};

/// A window that hears of what happens in it. The handlers do nothing unless overridden.
class EventWindow : public GuiWindow {
public:
    using GuiWindow::GuiWindow;

    /// A control was used; gives true when nothing else is to be done about it.
    virtual bool OnCommand(int /*controlId*/) { return false; }
    /// The window is there and about to be shown.
    virtual void OnOpen() {}
};

/// What may hold windows that follow a change of its size. The options dialog holds none.
class ResizeableWindowParent {
public:
    virtual ~ResizeableWindowParent() = default;
};

/// A window of the toolkit; also the wrapping of one that the host owns.
class ManagedWindow : public EventWindow, public ResizeableWindowParent {
public:
    using EventWindow::EventWindow;
};

} // namespace Nvr
