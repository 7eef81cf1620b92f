/* page_recorder: stands in for the browser. It appends its command line to the file that the environment
 * variable PAVANE_OPENED_PAGES names, one line in UTF-8 for each start. It has no console, whose window would
 * take the focus. */
#include <stdio.h>
#include <windows.h>

int main(void) {
    wchar_t path[MAX_PATH];
    char line[4096];
    FILE* file;
    const DWORD length = GetEnvironmentVariableW(L"PAVANE_OPENED_PAGES", path, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return 1;
    file = _wfopen(path, L"ab");
    if (!file) return 1;
    WideCharToMultiByte(CP_UTF8, 0, GetCommandLineW(), -1, line, sizeof line, NULL, NULL);
    fprintf(file, "%s\n", line);
    return fclose(file) != 0;
}
