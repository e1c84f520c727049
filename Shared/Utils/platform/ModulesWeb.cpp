#include "Shared/Utils/platform/Modules.h"

#include "Shared/Utils/platform/ModuleTable.h"

#include <algorithm>
#include <cstring>

namespace Nvr::Platform {

namespace {

// Tables may register themselves while statics are being made, in no known order: this is there before all.
constinit std::span<const ExportedFunction> s_Functions;

// Stands for the one module that there is.
char s_Process = 0;

} // namespace

ModuleTable::ModuleTable(std::span<const ExportedFunction> functions) noexcept {
    s_Functions = functions;
}

ModuleTable::~ModuleTable() {
    s_Functions = {};
}

ModuleHandle ProcessModule() {
    return &s_Process;
}

ModuleHandle LoadModule(const std::string& /*path*/) {
    return nullptr;
}

void UnloadModule(ModuleHandle /*module*/) {}

void* FindFunction(ModuleHandle module, const char* name) {
    if (module != ProcessModule() || name == nullptr)
        return nullptr;
    const auto found = std::find_if(s_Functions.begin(), s_Functions.end(), [=](const ExportedFunction& row) {
        return std::strcmp(row.Name, name) == 0;
    });
    return found == s_Functions.end() ? nullptr : found->Address;
}

ModuleHandle ModuleOfAddress(const void* address) {
    return address == nullptr ? nullptr : ProcessModule();
}

} // namespace Nvr::Platform
