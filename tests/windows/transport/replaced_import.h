// A function of the system that this program calls, replaced as long as the object lives.
#pragma once

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace pavane_test {

// `Function` is the type of a pointer to the function. Other modules keep the system's function.
template <class Function>
class ReplacedImport {
public:
    ReplacedImport(const char* library, const char* name, Function replacement)
        : place(Find(library, name)), original(*place) {
        Write(replacement);
    }
    ReplacedImport(const ReplacedImport&) = delete;
    ReplacedImport& operator=(const ReplacedImport&) = delete;
    ~ReplacedImport() { Write(original); }

    Function Original() const { return original; }

private:
    static Function* Find(const char* library, const char* name) {
        auto* const base = reinterpret_cast<std::uint8_t*>(GetModuleHandleW(nullptr));
        const auto at = [base]<class Entry>(Entry*, DWORD offset) {
            return reinterpret_cast<Entry*>(base + offset);
        };
        const auto* const head =
            at(static_cast<IMAGE_NT_HEADERS*>(nullptr),
               static_cast<DWORD>(at(static_cast<IMAGE_DOS_HEADER*>(nullptr), 0)->e_lfanew));
        const DWORD imports = head->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
        for (auto* each = at(static_cast<IMAGE_IMPORT_DESCRIPTOR*>(nullptr), imports); each->Name != 0;
             ++each) {
            if (_stricmp(at(static_cast<char*>(nullptr), each->Name), library) != 0) continue;
            const auto* names = at(static_cast<IMAGE_THUNK_DATA*>(nullptr), each->OriginalFirstThunk);
            auto* functions = at(static_cast<Function*>(nullptr), each->FirstThunk);
            for (; names->u1.AddressOfData != 0; ++names, ++functions) {
                const auto* const entry = at(static_cast<IMAGE_IMPORT_BY_NAME*>(nullptr),
                                             static_cast<DWORD>(names->u1.AddressOfData));
                if (std::strcmp(reinterpret_cast<const char*>(entry->Name), name) == 0) return functions;
            }
        }
        std::abort();
    }
    void Write(Function function) const {
        DWORD earlier = 0;
        VirtualProtect(place, sizeof *place, PAGE_READWRITE, &earlier);
        *place = function;
        VirtualProtect(place, sizeof *place, earlier, &earlier);
    }

    Function* place;
    Function original;
};

} // namespace pavane_test
