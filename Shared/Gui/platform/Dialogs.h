#pragma once

#include <optional>

namespace Nvr {
class ResId;
}

/// Modal dialogs as the platform shows them. One source a platform.
namespace Nvr::Platform {

/// The platform's handle of a window. Where a process shows its dialogs on a terminal, any handle but null
/// stands for that terminal, and null for nobody to ask. Where it has windows, null is no owner, which a
/// dialog can do without.
using NativeWindow = void*;

/// A width and a height in the units of the screen: pixels, or character cells of a terminal.
struct DialogExtent {
    int Width = 0;
    int Height = 0;
};

/// A dialog while it runs. Lives until RunDialog returns.
class DialogSession {
public:
    virtual bool IsChecked(int controlId) const = 0;
    /// Ticking a radio button clears the others of its group.
    virtual void SetChecked(int controlId, bool checked) = 0;
    virtual DialogExtent GetExtent() const = 0;
    virtual DialogExtent GetScreenExtent() const = 0;
    virtual void MoveTo(int left, int top) = 0;
    virtual void End(bool result) = 0;

protected:
    ~DialogSession() = default;
};

/// What a running dialog tells: first that it is there, then each command of a control.
class DialogEvents {
public:
    virtual void OnDialogOpen(DialogSession& session) = 0;
    virtual bool OnDialogCommand(int controlId) = 0;

protected:
    ~DialogEvents() = default;
};

/// Shows the dialog that is stored as `dialog` in that module over `parent` and comes back when it has ended,
/// with the result that it ended with; empty when the module is null or holds no such dialog, or it could not
/// be made. An exception out of `events` leaves the screen as it was and passes on.
std::optional<bool> RunDialog(NativeWindow parent, const ResId& dialog, DialogEvents& events);

} // namespace Nvr::Platform
