// Replaces a function that this program imports, so that the system refuses a call that it would not refuse.
#pragma once

#include <windows.h>

#include <cstring>

namespace pavane_test {

// Returns the place in the program's import table that holds the address of `function`; null if the program
// does not import it.
inline void** ImportPlace(const char* function) {
    auto* const base = reinterpret_cast<BYTE*>(GetModuleHandleW(nullptr));
    const auto* headers =
        reinterpret_cast<IMAGE_NT_HEADERS*>(base + reinterpret_cast<IMAGE_DOS_HEADER*>(base)->e_lfanew);
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    auto* library = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
    for (; library->Name != 0; ++library) {
        auto* name = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
        auto* place = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++place) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
            const auto* imported = reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
            if (std::strcmp(reinterpret_cast<const char*>(imported->Name), function) == 0)
                return reinterpret_cast<void**>(&place->u1.Function);
        }
    }
    return nullptr;
}

// Replaces the import for as long as it lives.
class PatchedImport {
public:
    template <class Function>
    PatchedImport(const char* name, Function* replacement) : slot(ImportPlace(name)) {
        if (slot != nullptr) former = Exchange(reinterpret_cast<void*>(replacement));
    }
    PatchedImport(const PatchedImport&) = delete;
    PatchedImport& operator=(const PatchedImport&) = delete;
    ~PatchedImport() {
        if (slot != nullptr) Exchange(former);
    }
    bool IsPatched() const { return slot != nullptr; }

private:
    void* Exchange(void* address) {
        DWORD protection = 0;
        VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
        void* const former = *slot;
        *slot = address;
        VirtualProtect(slot, sizeof *slot, protection, &protection);
        return former;
    }

    void** slot;
    void* former = nullptr;
};

} // namespace pavane_test
