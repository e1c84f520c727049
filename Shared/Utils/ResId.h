#pragma once

#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/platform/Modules.h"

namespace Nvr {

class TreeNodeRoot;

/// Names a resource by name or number and by the module that holds it. A name that is not empty goes before
/// the number in every lookup. A value type; borrows the module.
class ResId {
public:
    /// Number 0 in the process-wide `ResourceModule`.
    ResId();
    explicit ResId(const String& name);
    explicit ResId(int id);
    ResId(Platform::ModuleHandle module, const String& name);
    ResId(Platform::ModuleHandle module, int id);

    const String& GetName() const { return m_Name; }
    int GetId() const { return m_Id; }
    Platform::ModuleHandle GetModule() const { return m_Module; }

    /// The string resource with the number, at most 999 bytes of it, "%app" replaced. Asks the module, then
    /// the module of the process. Nothing found gives the empty string and a report.
    String GetString() const;

    /// The tree stored under this name or number as a resource of the type "TREENODE": a fresh tree, or null
    /// when neither the module nor the process holds one or it cannot be read. Owned by the caller.
    TreeNodeRoot* LoadFromResource() const;

    /// The module in which resources are looked up unless another is given; null until the host names one.
    static Platform::ModuleHandle ResourceModule();
    static void SetResourceModule(Platform::ModuleHandle module);

private:
    String m_Name;
    int m_Id;
    Platform::ModuleHandle m_Module;
};

} // namespace Nvr
