#include "Shared/Utils/platform/StackTrace.h"

#include "Shared/Utils/platform/Modules.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <windows.h>

namespace Nvr::Platform {

namespace {

std::string Hexadecimal(std::uintptr_t number) {
    std::array<char, 2 + 2 * sizeof number + 1> text;
    std::snprintf(text.data(), text.size(), "0x%llx", static_cast<unsigned long long>(number));
    return text.data();
}

std::string PathOfModule(ModuleHandle module) {
    std::array<char, MAX_PATH> path;
    const DWORD length = GetModuleFileNameA(static_cast<HMODULE>(module), path.data(), MAX_PATH);
    return {path.data(), length};
}

// A loaded module's table of exported names, as it lies in memory.
class ExportTable {
public:
    explicit ExportTable(ModuleHandle module) : m_Base(static_cast<const std::byte*>(module)) {
        const auto* const dos = At<IMAGE_DOS_HEADER>(0);
        const auto* const headers = At<IMAGE_NT_HEADERS>(static_cast<DWORD>(dos->e_lfanew));
        const DWORD place =
            headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT].VirtualAddress;
        m_Directory = place != 0 ? At<IMAGE_EXPORT_DIRECTORY>(place) : nullptr;
    }

    // "name+distance" of the export that begins nearest before an address; empty when none does.
    std::string Nearest(const std::byte* address) const {
        const auto offset = static_cast<DWORD>(address - m_Base);
        const char* name = nullptr;
        DWORD start = 0;
        for (DWORD i = 0; m_Directory != nullptr && i < m_Directory->NumberOfNames; ++i) {
            const WORD number = At<WORD>(m_Directory->AddressOfNameOrdinals)[i];
            const DWORD function = At<DWORD>(m_Directory->AddressOfFunctions)[number];
            if (function <= offset && function >= start) {
                start = function;
                name = At<char>(At<DWORD>(m_Directory->AddressOfNames)[i]);
            }
        }
        return name != nullptr ? name + ("+" + Hexadecimal(offset - start)) : std::string();
    }

private:
    template <class T>
    const T* At(DWORD offset) const {
        return reinterpret_cast<const T*>(m_Base + offset);
    }

    const std::byte* m_Base;
    const IMAGE_EXPORT_DIRECTORY* m_Directory;
};

std::string DescribeFrame(const void* address) {
    std::string line;
    if (const ModuleHandle module = ModuleOfAddress(address)) {
        line = PathOfModule(module);
        line.append("(").append(ExportTable(module).Nearest(static_cast<const std::byte*>(address)));
        line.append(") ");
    }
    return line.append("[").append(Hexadecimal(reinterpret_cast<std::uintptr_t>(address))).append("]");
}

} // namespace

std::vector<std::string> CaptureStackTrace() {
    // The system takes no more in one go.
    constexpr DWORD kDeepestTrace = 62;
    std::array<void*, kDeepestTrace> frames{};
    const WORD count = CaptureStackBackTrace(0, kDeepestTrace, frames.data(), nullptr);
    auto frame = frames.begin();
    const auto end = frames.begin() + count;
    // Systems differ in whether this function is the first.
    const auto caller = std::find(frame, end, __builtin_return_address(0));
    if (caller != end)
        frame = caller;
    std::vector<std::string> lines;
    for (; frame != end; ++frame)
        lines.push_back(DescribeFrame(*frame));
    return lines;
}

} // namespace Nvr::Platform
