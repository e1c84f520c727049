#pragma once

#include <string>

/// The loaded modules of the process: executables and libraries, and the functions that they export.
/// One source a platform. Paths are native, in the system's own bytes.
namespace Nvr::Platform {

/// What the platform's loader hands out for a loaded module. Null is no module.
using ModuleHandle = void*;

/// The main executable of the process. Never null; not to be unloaded.
ModuleHandle ProcessModule();

/// Loads a library with its symbols kept local; null when it cannot be loaded.
ModuleHandle LoadModule(const std::string& path);

/// Gives back what LoadModule gave.
void UnloadModule(ModuleHandle module);

/// The function that `module` itself exports under `name`, or null. A function of the same name in another
/// module of the process, the caller's own included, is never given.
void* FindFunction(ModuleHandle module, const char* name);

/// The module whose memory holds `address`, in the same form as a handle from the loader; null if none does.
ModuleHandle ModuleOfAddress(const void* address);

} // namespace Nvr::Platform
