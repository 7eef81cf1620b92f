#include "log_lines.h"

#include <windows.h>

#include <stdio.h>
#include <string.h>
#include <wchar.h>

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

/* Reads one line without its end; what does not fit is skipped. Returns false at the end of the file. */
static bool ReadLine(FILE* log, char line[kLogLineBytes]) {
    if (!fgets(line, kLogLineBytes, log)) {
        return false;
    }
    const size_t length = strcspn(line, "\r\n");
    if (line[length] == 0) {
        for (int byte = 0; byte != '\n' && byte != EOF;) {
            byte = fgetc(log);
        }
    }
    line[length] = 0;
    return true;
}

static bool NamesACause(const char* line) {
    return *line && !strstr(line, "_time_") && !strstr(line, ": ----- ");
}

static void AddLine(struct LogLines* lines, const char* line) {
    if (lines->count == kLogLines) {
        memmove(lines->text[0], lines->text[1], sizeof lines->text - sizeof lines->text[0]);
        --lines->count;
    }
    strcpy(lines->text[lines->count++], line);
}

void ReadLogLines(long start, struct LogLines* lines) {
    char line[kLogLineBytes];
    lines->count = 0;
    FILE* log = OpenLogFile();
    if (!log) {
        return;
    }
    fseek(log, start, SEEK_SET);
    while (ReadLine(log, line)) {
        if (NamesACause(line)) {
            AddLine(lines, line);
        }
    }
    fclose(log);
}

bool LogMentions(const struct LogLines* lines, const char* words) {
    for (int i = 0; i < lines->count; ++i) {
        if (strstr(lines->text[i], words)) {
            return true;
        }
    }
    return false;
}
