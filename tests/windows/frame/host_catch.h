// A host that catches structured exceptions itself, as one of another compiler would.
#pragma once

#include <windows.h>

#include <functional>

namespace host_catch {

extern "C" {
int HostCatchingFrame(void (*call)(void*), void* argument);
extern char HostCatchingFrameEnd[];
}

inline DWORD gCaughtCode = 0;

// Marked as used, so that the compiler emits it: only HostCatchingFrame names it.
extern "C" [[gnu::used]] inline EXCEPTION_DISPOSITION
HostCatchingHandler(EXCEPTION_RECORD* record, void* frame, CONTEXT*, DISPATCHER_CONTEXT* dispatcher) {
    if ((record->ExceptionFlags & (EXCEPTION_UNWINDING | EXCEPTION_EXIT_UNWIND)) == 0) {
        gCaughtCode = record->ExceptionCode;
        RtlUnwindEx(frame, HostCatchingFrameEnd, record, reinterpret_cast<void*>(1),
                    dispatcher->ContextRecord, dispatcher->HistoryTable);
    }
    return ExceptionContinueSearch;
}

// Returns the code of the structured exception that ended `action`; 0 if none did.
inline DWORD CodeCaughtFrom(std::function<void()> action) {
    gCaughtCode = 0;
    const auto call = [](void* argument) { (*static_cast<std::function<void()>*>(argument))(); };
    return HostCatchingFrame(call, &action) != 0 ? gCaughtCode : 0;
}

inline void Raise(DWORD code) { RaiseException(code, 0, 0, nullptr); }

} // namespace host_catch
