#pragma once

#include "Shared/Utils/platform/Modules.h"

#include <cstddef>
#include <span>
#include <string_view>

/// How a module carries its resources on a platform that has none of its own.
///
/// A module (the plug-in, a program, a test) describes what it carries in constant tables and registers them
/// with one object of static storage:
///
///     const StringResource kStrings[] = {{100, "Stave at line %1 is ignored"}, {102, "Importing Tab file"}};
///     const DataResource kData[] = {{"TREENODE", "", 100, TemplateBytes()}};
///     const ResourceTable kResources(kStrings, kData);
///
/// The table belongs to the module whose memory holds the ResourceTable object, and is found under that
/// module's handle by the operations of Resources.h; nothing is exported, and a handle is only compared,
/// never looked into. The list of tables belongs to the code that is linked together with it: a library that
/// has this code built in finds its own tables and not those of the program that loaded it.
///
/// A source that holds nothing but a table must be linked by name (in the module's own list of sources or as
/// an object library): from a static library the linker would leave it out.
namespace Nvr::Platform {

/// A text in the system code page under a number.
struct StringResource {
    int Id;
    std::string_view Text;
};

/// Bytes under a type and a name; under a type and a number when the name is empty.
struct DataResource {
    std::string_view Type;
    std::string_view Name;
    int Id;
    std::span<const std::byte> Bytes;
};

/// Registers tables for the time of its own life. Borrows them: they must live as long, and constant tables
/// do. Of two tables of one module that hold the same resource either may be found.
class ResourceTable {
public:
    ResourceTable(std::span<const StringResource> strings, std::span<const DataResource> data) noexcept;
    ~ResourceTable();
    ResourceTable(const ResourceTable&) = delete;
    ResourceTable& operator=(const ResourceTable&) = delete;

    std::span<const StringResource> Strings() const noexcept { return m_Strings; }
    std::span<const DataResource> Data() const noexcept { return m_Data; }
    /// The module that this object lies in.
    ModuleHandle Module() const { return ModuleOfAddress(this); }
    /// The table registered before this one, or null.
    const ResourceTable* Next() const noexcept { return m_Next; }
    /// The table registered last, or null: the start of a walk over all tables.
    static const ResourceTable* First() noexcept;

private:
    std::span<const StringResource> m_Strings;
    std::span<const DataResource> m_Data;
    // A table may be declared constant, and is still linked and unlinked.
    mutable const ResourceTable* m_Next;
};

} // namespace Nvr::Platform
