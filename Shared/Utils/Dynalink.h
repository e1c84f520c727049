#pragma once

#include "Shared/Utils/NonCopyable.h"
#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/platform/Modules.h"

namespace Nvr {

class DiskFile;

/// Reaches functions that another module of the process exports.
///
/// Owns the library when it has loaded it itself, and then unloads it at its end: addresses from
/// `GetFunction` last as long as the object. Nothing here reports or throws; a library that cannot be loaded
/// gives an object without a module.
class Dynalink : private NonCopyable {
public:
    /// The main executable of the process, which is not owned.
    Dynalink();
    /// Loads the library at a native path.
    explicit Dynalink(const String& path);
    /// The same; a file with an empty url gives an object without a module.
    explicit Dynalink(const DiskFile& file);
    ~Dynalink();

    /// True when there is a module to look into.
    bool IsLoaded() const { return m_Module != nullptr; }
    Platform::ModuleHandle GetModule() const { return m_Module; }

    /// The address of a function that the module itself exports; null when it exports none of that name, and
    /// without a module.
    void* GetFunction(const String& name) const;
    /// The same as a pointer to a function of the type `Function`, which the caller must know to be right.
    template <class Function>
    Function* GetFunctionAs(const String& name) const {
        return reinterpret_cast<Function*>(GetFunction(name));
    }

private:
    Platform::ModuleHandle m_Module;
    bool m_Owned;
};

} // namespace Nvr
