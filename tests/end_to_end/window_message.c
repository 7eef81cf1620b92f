/* window_message TITLE close: posts WM_CLOSE to the top-level window with that title, enabled or not, as the
 * task bar does. window_message TITLE command ID: posts the command of a menu. Exit code 1 if there is no
 * such window. */
#include <stdlib.h>
#include <string.h>
#include <windows.h>

int main(int count, char** arguments) {
    const HWND window = count >= 3 ? FindWindowA(NULL, arguments[1]) : NULL;
    if (!window) return 1;
    if (strcmp(arguments[2], "close") == 0) return !PostMessageW(window, WM_CLOSE, 0, 0);
    if (count < 4 || strcmp(arguments[2], "command") != 0) return 1;
    return !PostMessageW(window, WM_COMMAND, (WPARAM)atoi(arguments[3]), 0);
}
