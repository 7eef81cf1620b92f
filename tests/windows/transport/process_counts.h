// What the process holds at the moment: handles, threads and memory.
#pragma once

#include <windows.h>

#include <tlhelp32.h>
#include <winternl.h>

#include <malloc.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace pavane_test {

// Counted in the table of the whole system: Wine's GetProcessHandleCount returns 0.
inline std::size_t OpenHandles() {
    struct Entry {
        ULONG process;
        BYTE type;
        BYTE flags;
        USHORT handle;
        void* object;
        ULONG access;
    };
    constexpr auto kSystemHandleInformation = static_cast<SYSTEM_INFORMATION_CLASS>(16);
    constexpr std::size_t kPlaces = 1 << 16;
    std::vector<Entry> table(kPlaces + 1); // the first entry holds the count
    if (NtQuerySystemInformation(kSystemHandleInformation, table.data(),
                                 static_cast<ULONG>(table.size() * sizeof(Entry)), nullptr) != 0) {
        return 0;
    }
    const auto* const begin =
        reinterpret_cast<const Entry*>(reinterpret_cast<const std::byte*>(table.data()) + 8);
    const auto* const end = begin + *reinterpret_cast<const ULONG*>(table.data());
    const auto isOurs = [](const Entry& entry) { return entry.process == GetCurrentProcessId(); };
    return static_cast<std::size_t>(std::count_if(begin, end, isOurs));
}

inline std::size_t RunningThreads() {
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    std::size_t count = 0;
    THREADENTRY32 entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Thread32First(snapshot, &entry); more; more = Thread32Next(snapshot, &entry))
        count += entry.th32OwnerProcessID == GetCurrentProcessId();
    CloseHandle(snapshot);
    return count;
}

// The bytes of the C library's heap that are in use.
inline std::size_t UsedMemory() {
    const auto heap = reinterpret_cast<HANDLE>(_get_heap_handle());
    std::size_t used = 0;
    PROCESS_HEAP_ENTRY entry = {};
    HeapLock(heap);
    while (HeapWalk(heap, &entry)) {
        if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) used += entry.cbData;
    }
    HeapUnlock(heap);
    return used;
}

} // namespace pavane_test
