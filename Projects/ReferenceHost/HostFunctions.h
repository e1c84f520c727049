#pragma once

#include <string>

namespace ReferenceHost {

/// Hears what the plug-in asks of its host. One listener at a time, borrowed; called on the thread that
/// opened the file.
class HostListener {
public:
    virtual ~HostListener() = default;
    virtual void OnProgressBegin(const std::string& title) = 0;
    /// False cancels the conversion.
    virtual bool OnProgress(int percent) = 0;
    virtual void OnProgressEnd() = 0;
    virtual void OnMessage(const std::string& text) = 0;
    /// The finished score is in the file; it is gone after the call.
    virtual void OnScore(const std::string& path) = 0;
};

/// Puts `listener` in place of the present one, null for none: the host functions then do nothing.
void SetHostListener(HostListener* listener);

/// What the plug-in hands back with every progress call.
void* ProgressContext();

} // namespace ReferenceHost
