#pragma once

#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/ResId.h"

#include <cstdint>

namespace Nvr {

/// Thrown by value when the user has cancelled the conversion.
class ConverterCancelled {};

/// Everything that a conversion shows to the user besides the finished score: progress, the messages of the
/// results dialog, and the cancel that comes back. An abstract class without data; whoever is given one
/// borrows it.
class ConverterOutput {
public:
    virtual void SetConverterName(Nvr::String name) = 0;
    virtual void SetFileName(Nvr::String name) = 0;
    /// -2 stands for no context.
    virtual void SetContext1(int value) = 0;
    virtual void SetContext2(int value) = 0;
    virtual void SetContext3(std::int16_t value) = 0;
    virtual Nvr::String GetFileName() = 0;
    virtual int GetContext1() = 0;
    virtual int GetContext2() = 0;
    virtual std::int16_t GetContext3() = 0;
    virtual Nvr::String GetConverterName() = 0;
    /// Shows `text` at the last percent. Throws ConverterCancelled when the user has cancelled.
    virtual void SetProgressText(Nvr::String text) = 0;
    /// `percent` from 0 to 100. Throws ConverterCancelled when the user has cancelled.
    virtual void SetProgress(int percent, Nvr::String text) = 0;
    /// Sends `text`, or the text of the resource `id` when it is empty, to the results dialog. An id already
    /// reported is sent again only with `repeat`.
    virtual void Report(ResId id, int kind, Nvr::String text, bool repeat) = 0;
    virtual bool GetStatusFlag() = 0;
    virtual bool GetReservedFlag() = 0;

protected:
    ~ConverterOutput() = default;
};

} // namespace Nvr
