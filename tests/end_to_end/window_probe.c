/* window_probe: prints the topmost visible dialog of the screen and its visible controls, one a line, for
 * scripts that drive a program from outside:
 *
 *   dialog LEFT TOP WIDTH HEIGHT TITLE
 *   ID CLASS CENTER_X CENTER_Y WIDTH HEIGHT STATES TEXT
 *
 * Coordinates are the screen's, in pixels. STATES is a word of letters: E enabled, F has the focus, T is a
 * tab stop, D is drawn as the default button, - for none. TEXT of an edit control and of a popup is its state
 * instead:
 *
 *   line=FIRST_VISIBLE/LINES selection=START-END direction=ltr|rtl
 *   row=SELECTED/ROWS list=open|closed row_height=PIXELS
 *
 * The state of a read-only edit control of one line ends with text=TEXT.
 *
 * Exit code 1 if there is no dialog. */
#include <stdio.h>
#include <windows.h>

static HWND topDialog;

static BOOL CALLBACK FindDialog(HWND window, LPARAM unused) {
    wchar_t name[64];
    (void)unused;
    if (!IsWindowVisible(window) || !IsWindowEnabled(window)) return TRUE;
    GetClassNameW(window, name, 64);
    if (lstrcmpW(name, L"#32770") != 0) return TRUE;
    topDialog = window;
    return FALSE;
}

static void PrintText(const wchar_t* text) {
    char utf8[2048];
    char* end;
    WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8, sizeof utf8, NULL, NULL);
    for (end = utf8; *end; ++end) {
        if (*end == '\n' || *end == '\r') *end = ' ';
    }
    printf("%s\n", utf8);
}

static void PrintStates(HWND control, HWND focus) {
    LONG style = GetWindowLongW(control, GWL_STYLE);
    wchar_t name[64];
    char states[8];
    char* end = states;
    GetClassNameW(control, name, 64);
    if (IsWindowEnabled(control)) *end++ = 'E';
    if (control == focus) *end++ = 'F';
    if (style & WS_TABSTOP) *end++ = 'T';
    if (lstrcmpiW(name, L"button") == 0 && (style & 15) == BS_DEFPUSHBUTTON) *end++ = 'D';
    if (end == states) *end++ = '-';
    *end = 0;
    printf("%s ", states);
}

static void PrintEditState(HWND edit) {
    const LONG style = GetWindowLongW(edit, GWL_STYLE);
    DWORD selection = (DWORD)SendMessageW(edit, EM_GETSEL, 0, 0);
    wchar_t text[512] = L"";
    printf("line=%d/%d selection=%d-%d direction=%s ", (int)SendMessageW(edit, EM_GETFIRSTVISIBLELINE, 0, 0),
           (int)SendMessageW(edit, EM_GETLINECOUNT, 0, 0), LOWORD(selection), HIWORD(selection),
           GetWindowLongW(edit, GWL_EXSTYLE) & WS_EX_RTLREADING ? "rtl" : "ltr");
    if ((style & ES_READONLY) && !(style & ES_MULTILINE)) {
        SendMessageW(edit, WM_GETTEXT, 512, (LPARAM)text);
        printf("text=");
    }
    PrintText(text);
}

static void PrintPopupState(HWND popup) {
    printf("row=%d/%d list=%s row_height=%d\n", (int)SendMessageW(popup, CB_GETCURSEL, 0, 0),
           (int)SendMessageW(popup, CB_GETCOUNT, 0, 0),
           SendMessageW(popup, CB_GETDROPPEDSTATE, 0, 0) ? "open" : "closed",
           (int)SendMessageW(popup, CB_GETITEMHEIGHT, 0, 0));
}

static BOOL CALLBACK PrintControl(HWND control, LPARAM focus) {
    wchar_t name[64], text[512];
    RECT frame;
    if (!IsWindowVisible(control)) return TRUE;
    GetClassNameW(control, name, 64);
    GetWindowTextW(control, text, 512);
    GetWindowRect(control, &frame);
    printf("%d %ls %ld %ld %ld %ld ", GetDlgCtrlID(control), name, (frame.left + frame.right) / 2,
           (frame.top + frame.bottom) / 2, frame.right - frame.left, frame.bottom - frame.top);
    PrintStates(control, (HWND)focus);
    if (lstrcmpiW(name, L"edit") == 0)
        PrintEditState(control);
    else if (lstrcmpiW(name, L"combobox") == 0)
        PrintPopupState(control);
    else
        PrintText(text);
    return TRUE;
}

int main(void) {
    RECT frame;
    wchar_t title[512];
    GUITHREADINFO thread;
    EnumWindows(FindDialog, 0);
    if (!topDialog) return 1;
    GetWindowRect(topDialog, &frame);
    GetWindowTextW(topDialog, title, 512);
    printf("dialog %ld %ld %ld %ld ", frame.left, frame.top, frame.right - frame.left,
           frame.bottom - frame.top);
    PrintText(title);
    thread.cbSize = sizeof thread;
    thread.hwndFocus = NULL;
    GetGUIThreadInfo(GetWindowThreadProcessId(topDialog, NULL), &thread);
    EnumChildWindows(topDialog, PrintControl, (LPARAM)thread.hwndFocus);
    return 0;
}
