#pragma once

#include "Shared/Utils/NvrString.h"

/// Switches and numbers for those who look for faults, read from the system's settings store each time they
/// are asked for. With nothing stored, which is the state of every ordinary installation, they give the
/// default and report nothing.
namespace Nvr {

bool GetDebugSwitch(const String& group, const String& name, bool defaultValue);
int GetDebugNumber(const String& group, const String& name, int defaultValue);

} // namespace Nvr
