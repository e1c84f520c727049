#pragma once

#include <cstdint>
#include <string>

namespace Opening {

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

/// The six functions of a host, as Shared/NotaveraAPI/NotaveraPlugin.h says. The program offers them to the
/// plug-in under their names, in the way of its platform.
void LoadTempFile(const char* path);
void ResultsDialogMessage(const char* converter, const char* file, int kind, int context1, int context2,
                          const char* message);
int UpdateProgressDialog(void* context, int percent, const char* text);
void DestroyProgressDialog(void* context);
void CreateProgressDialog2(void* context, const char* title, int lowest, int highest, int number30);
/// No tab asks for transposing instruments: nothing to choose.
intptr_t ChooseTransposingInstruments(intptr_t argument1, intptr_t argument2, intptr_t argument3,
                                      intptr_t argument4, intptr_t argument5, intptr_t argument6,
                                      intptr_t argument7, intptr_t argument8);

} // namespace Opening
