/*
 * The companion library of the service loader's tests. cmake/companions.cmake builds one of each kind: good,
 * without entry points, slow to load, calling back into the program (the slow one does too), and in need of
 * another library, of the test's own or of the system.
 */
#include <windows.h>

#include <lzexpand.h>
#include <stdarg.h>
#include <stdint.h>
#include <stdio.h>

#define EXPORTED __declspec(dllexport)

#ifdef COMPANION_WITHOUT_ENTRY_POINTS

EXPORTED int C_SVHNothing(void) { return 0; }

#else

/* What happened, one line each, for the tests that have the library in their own process. */
static char gRecord[8192];
static unsigned gErrorMode;

static void Record(const char* line) {
    const size_t length = strlen(gRecord);
    snprintf(gRecord + length, sizeof gRecord - length, "%s\n", line);
}

/* For the tests that start another process: the same lines in a file. */
static void Write(const char* line) {
    wchar_t path[MAX_PATH];
    const DWORD length = GetEnvironmentVariableW(L"COMPANION_RECORD", path, MAX_PATH);
    FILE* const file = length > 0 && length < MAX_PATH ? _wfopen(path, L"ab") : NULL;
    if (!file) return;
    fprintf(file, "%s\n", line);
    fclose(file);
}

static void Keep(const char* line) {
    Record(line);
    Write(line);
}

EXPORTED const char* CompanionRecord(void) { return gRecord; }
EXPORTED void CompanionForget(void) { gRecord[0] = 0; }
/* The error mode of the thread while the library was loaded. */
EXPORTED unsigned CompanionErrorMode(void) { return gErrorMode; }

#ifdef COMPANION_CALLING_BACK
static void CallBack(void) {
    void (*const program)(void) =
        (void (*)(void))GetProcAddress(GetModuleHandleW(NULL), "CompanionCallsBack");
    if (program) program();
}
#else
static void CallBack(void) {}
#endif

EXPORTED void C_SVHRelease(void* handle) {
    char line[80];
    snprintf(line, sizeof line, "release %d", handle == gRecord);
    Keep(line);
}

EXPORTED void C_SVHLogv(void* session, const char* component, int level, const char* formats,
                        const char* format, va_list arguments) {
    char text[600];
    char line[800];
    vsnprintf(text, sizeof text, format, arguments);
    snprintf(line, sizeof line, "%s%s %d [%s] %s", session ? "session " : "", component, level, formats,
             text);
    Keep(line);
    CallBack();
}

EXPORTED void* C_SVHErrnoServiceCreate(void) {
    Keep("create");
    return gRecord;
}

EXPORTED void C_SVHErrnoServiceSetErrno(void* service, uint32_t number) {
    char line[80];
    snprintf(line, sizeof line, "set %d %lu", service == gRecord, (unsigned long)number);
    Keep(line);
}

#ifdef COMPANION_IN_NEED
__declspec(dllimport) int HelperNumber(void);
EXPORTED int CompanionNumber(void) { return HelperNumber(); }
#endif
#ifdef COMPANION_IN_NEED_OF_SYSTEM
EXPORTED int CompanionNumber(void) { return LZSeek(-1, 0, 0); }
#endif

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void* reserved) {
    (void)module;
    (void)reserved;
    if (reason != DLL_PROCESS_ATTACH) return TRUE;
    gErrorMode = GetThreadErrorMode();
    CallBack();
#ifdef COMPANION_SLOW
    Sleep(COMPANION_SLOW);
#endif
    return TRUE;
}

#endif
