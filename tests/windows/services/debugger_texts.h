// What the process shows to its debugger while an object of this class lives.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace brixen::pvn {

class DebuggerTexts {
public:
    DebuggerTexts() : handler(AddVectoredExceptionHandler(1, Catch)) { gTexts.clear(); }
    ~DebuggerTexts() { RemoveVectoredExceptionHandler(handler); }
    DebuggerTexts(const DebuggerTexts&) = delete;
    DebuggerTexts& operator=(const DebuggerTexts&) = delete;

    // Oldest first.
    std::vector<std::string>& Get() { return gTexts; }

private:
    static constexpr DWORD kDebuggerText = 0x40010006;

    static LONG CALLBACK Catch(EXCEPTION_POINTERS* pointers) {
        const EXCEPTION_RECORD& record = *pointers->ExceptionRecord;
        if (record.ExceptionCode != kDebuggerText) return EXCEPTION_CONTINUE_SEARCH;
        gTexts.emplace_back(reinterpret_cast<const char*>(record.ExceptionInformation[1]));
        return EXCEPTION_CONTINUE_EXECUTION;
    }

    static inline std::vector<std::string> gTexts;
    void* const handler;
};

} // namespace brixen::pvn
