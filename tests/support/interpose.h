#pragma once

#include <algorithm>
#include <cstddef>
#include <span>

#include "adapters/win32/windows_api.h"

namespace orv {

/// Returns the addresses of the functions that this program, with its static libraries, imports.
inline std::span<void*> importedFunctions() {
    auto* const base = reinterpret_cast<std::byte*>(::GetModuleHandleW(nullptr));
    const auto& dos = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto& header = *reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos.e_lfanew);
    const auto& table = header.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IAT];
    return {reinterpret_cast<void**>(base + table.VirtualAddress), table.Size / sizeof(void*)};
}

/// Makes this program call `kBefore`, with the function and its arguments, before each call of the function.
template <auto kBefore, typename Result, typename... Arguments>
void interpose(Result(WINAPI* function)(Arguments...)) {
    static const auto system = function;
    Result(WINAPI * replacement)(Arguments...) = [](Arguments... arguments) -> Result {
        kBefore(system, arguments...);
        return system(arguments...);
    };
    const std::span<void*> table = importedFunctions();
    DWORD before = 0;
    ::VirtualProtect(table.data(), table.size_bytes(), PAGE_READWRITE, &before);
    std::ranges::replace(table, reinterpret_cast<void*>(function), reinterpret_cast<void*>(replacement));
}

}  // namespace orv
