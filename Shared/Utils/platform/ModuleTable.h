#pragma once

#include <span>

/// What the program exports on a platform without a loader, where all modules are linked into one program.
///
/// Functions of two modules may have one name there: a host and a plug-in export some of the same. So the
/// program says itself which are its own, as a host:
///
///     const ExportedFunction kFunctions[] = {{"NVR_LOADTEMPFILE", reinterpret_cast<void*>(LoadTempFile)}};
///     const ModuleTable kExports(kFunctions);
namespace Nvr::Platform {

struct ExportedFunction {
    const char* Name;
    void* Address;
};

/// Registers the functions of the program for the time of its own life, in place of those registered before.
/// Borrows the table.
class ModuleTable {
public:
    explicit ModuleTable(std::span<const ExportedFunction> functions) noexcept;
    ~ModuleTable();
    ModuleTable(const ModuleTable&) = delete;
    ModuleTable& operator=(const ModuleTable&) = delete;
};

} // namespace Nvr::Platform
