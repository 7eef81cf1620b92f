#include "log_line.h"

#include <windows.h>

#include <stdbool.h>
#include <stdio.h>
#include <string.h>

static FILE* OpenLogFile(void) {
    wchar_t path[MAX_PATH + 8];
    const DWORD length = GetTempPathW(MAX_PATH, path);
    if (length == 0 || length >= MAX_PATH) {
        return NULL;
    }
    wcscpy(path + length, L"pvn.log");
    return _wfopen(path, L"rb");
}

long EndOfLog(void) {
    FILE* log = OpenLogFile();
    if (!log) {
        return 0;
    }
    fseek(log, 0, SEEK_END);
    const long end = ftell(log);
    fclose(log);
    return end < 0 ? 0 : end;
}

static bool NamesACause(const char* line) { return !strstr(line, "_time_") && !strstr(line, ": ----- "); }

void ReadLastLogLine(long start, wchar_t* line, size_t capacity) {
    char read[1000];
    *line = 0;
    FILE* log = OpenLogFile();
    if (!log) {
        return;
    }
    fseek(log, start, SEEK_SET);
    while (fgets(read, sizeof read, log)) {
        if (NamesACause(read)) {
            read[strcspn(read, "\r\n")] = 0;
            swprintf(line, capacity, L"%hs", read);
        }
    }
    fclose(log);
}
