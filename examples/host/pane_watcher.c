#include "pane_watcher.h"

#include "options.h"
#include "window_picture.h"

#include <commctrl.h>

#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <wchar.h>

enum {
    kTimer = 1,
    kMilliseconds = 100,
    kMostPanes = 50,  /* a walk that meets more goes in a circle */
    kMostWaits = 900, /* looks at a pane that has no button to press, such as one that waits for an answer */
};

/* A hash of what is visible of a pane. Two panes differ in it. */
typedef uint64_t Look;

static struct {
    HWND host;
    const wchar_t* folder;
    bool walk;
    const wchar_t* presses; /* what is left of the list */
    Look seen;              /* at the latest look */
    Look saved;             /* of the latest picture */
    int panes;
    int waits; /* looks at the present pane without a button to press */
} gWatcher;

static bool BelongsToHost(HWND window) {
    while (window && window != gWatcher.host) {
        window = GetWindow(window, GW_OWNER);
    }
    return window != NULL;
}

/* Of several dialogs on top of one another only the uppermost is enabled. */
static BOOL CALLBACK TakeOpenDialog(HWND window, LPARAM result) {
    if (window == gWatcher.host || !IsWindowVisible(window) || !IsWindowEnabled(window) ||
        !BelongsToHost(window)) {
        return TRUE;
    }
    *(HWND*)result = window;
    return FALSE;
}

static HWND FindDialog(void) {
    HWND dialog = NULL;
    EnumThreadWindows(GetCurrentThreadId(), TakeOpenDialog, (LPARAM)&dialog);
    return dialog;
}

static Look Mix(Look look, uint64_t value) { return (look ^ value) * UINT64_C(0x100000001B3); }

static BOOL CALLBACK MixControl(HWND control, LPARAM look) {
    if (IsWindowVisible(control)) {
        *(Look*)look = Mix(*(Look*)look, (uintptr_t)control);
    }
    return TRUE;
}

static Look LookOf(HWND dialog) {
    wchar_t title[200] = L"";
    Look look = Mix(UINT64_C(0xCBF29CE484222325), (uintptr_t)dialog);
    GetWindowTextW(dialog, title, sizeof title / sizeof title[0]);
    for (const wchar_t* unit = title; *unit; ++unit) {
        look = Mix(look, *unit);
    }
    EnumChildWindows(dialog, MixControl, (LPARAM)&look);
    return look;
}

static BOOL CALLBACK TakeDefaultButton(HWND control, LPARAM result) {
    wchar_t className[20];
    GetClassNameW(control, className, sizeof className / sizeof className[0]);
    const bool isDefault = _wcsicmp(className, L"Button") == 0 &&
                           (GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    if (!isDefault || !IsWindowVisible(control) || !IsWindowEnabled(control)) {
        return TRUE;
    }
    *(HWND*)result = control;
    return FALSE;
}

static void GiveUp(const char* why) {
    fprintf(stderr, "pavane-host: %s after pane %d\n", why, gWatcher.panes);
    fflush(stderr);
    ExitProcess(EXIT_STUCK);
}

static bool IsCheckBox(HWND control) {
    wchar_t className[20];
    GetClassNameW(control, className, sizeof className / sizeof className[0]);
    return _wcsicmp(className, L"Button") == 0 &&
           (GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) == BS_AUTOCHECKBOX;
}

/* A field that waits for its check box, the control before it, gets it set. */
static void Unlock(HWND field) {
    const HWND check = GetWindow(field, GW_HWNDPREV);
    if (!IsWindowEnabled(field) && check && IsCheckBox(check)) {
        SendMessageW(check, BM_SETCHECK, BST_CHECKED, 0);
        SendMessageW(GetParent(check), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(check), BN_CLICKED),
                     (LPARAM)check);
    }
}

/* A popup selects the row of that number, a slider goes to that position, a field has that text. */
static void Fill(HWND control, const wchar_t* text) {
    wchar_t className[20];
    GetClassNameW(control, className, sizeof className / sizeof className[0]);
    Unlock(control);
    if (_wcsicmp(className, L"ComboBox") == 0) {
        SendMessageW(control, CB_SETCURSEL, (WPARAM)wcstol(text, NULL, 10), 0);
    } else if (_wcsicmp(className, TRACKBAR_CLASSW) == 0) {
        SendMessageW(control, TBM_SETPOS, TRUE, wcstol(text, NULL, 10));
        SendMessageW(GetParent(control), WM_HSCROLL, TB_ENDTRACK, (LPARAM)control);
    } else {
        SendMessageW(control, WM_SETTEXT, 0, (LPARAM)text);
    }
}

/* Takes the entries ID=TEXT at the beginning of the list. Returns false if such a field is not visible. */
static bool FillFields(HWND dialog) {
    for (;;) {
        wchar_t* end;
        const HWND field = GetDlgItem(dialog, (int)wcstol(gWatcher.presses, &end, 10));
        if (*end != L'=') {
            return true;
        }
        if (!field || !IsWindowVisible(field)) {
            return false;
        }
        wchar_t text[100];
        const size_t length = wcscspn(end + 1, L",");
        swprintf(text, sizeof text / sizeof text[0], L"%.*ls", (int)length, end + 1);
        Fill(field, text);
        gWatcher.presses = end + 1 + length + (end[1 + length] == L',');
    }
}

/* The button of the next id in the list; of a list that has ended, the default one. NULL if it cannot be
 * pressed now. */
static HWND NextButton(HWND dialog) {
    HWND button = NULL;
    if (gWatcher.presses && !FillFields(dialog)) {
        return NULL;
    }
    if (gWatcher.presses && *gWatcher.presses) {
        wchar_t* end;
        button = GetDlgItem(dialog, (int)wcstol(gWatcher.presses, &end, 10));
        if (!button || !IsWindowVisible(button)) {
            return NULL;
        }
        gWatcher.presses = *end == L',' ? end + 1 : end;
        return button;
    }
    EnumChildWindows(dialog, TakeDefaultButton, (LPARAM)&button);
    return button;
}

static void PressNextButton(HWND dialog) {
    const HWND button = NextButton(dialog);
    if (button) {
        PostMessageW(button, BM_CLICK, 0, 0); /* posted: the click may open a dialog of its own */
        gWatcher.waits = 0;
    } else if (++gWatcher.waits > kMostWaits) {
        GiveUp("no button to press");
    }
}

static void SavePane(HWND dialog) {
    wchar_t path[MAX_PATH];
    swprintf(path, MAX_PATH, L"%ls\\pane-%d.png", gWatcher.folder, gWatcher.panes);
    if (!SaveWindowPicture(dialog, path)) {
        fprintf(stderr, "pavane-host: cannot write %ls\n", path);
    }
}

static void CALLBACK LookForPane(HWND window, UINT message, UINT_PTR timer, DWORD time) {
    (void)window, (void)message, (void)timer, (void)time;
    HWND dialog = FindDialog();
    const Look look = dialog ? LookOf(dialog) : 0;
    const bool isSteady = look == gWatcher.seen; /* not in the middle of a change */
    gWatcher.seen = look;
    if (!dialog || !isSteady) {
        return;
    }
    if (look == gWatcher.saved) {
        if (gWatcher.waits > 0) {
            PressNextButton(dialog);
        }
        return;
    }
    gWatcher.saved = look;
    gWatcher.waits = 0;
    if (++gWatcher.panes > kMostPanes) {
        GiveUp("no end");
    }
    if (gWatcher.folder) {
        SavePane(dialog);
    }
    if (gWatcher.walk) {
        PressNextButton(dialog);
    }
}

bool WatchPanes(HWND host, const wchar_t* folder, bool walk, const wchar_t* presses) {
    if (folder && !CreateDirectoryW(folder, NULL) && GetLastError() != ERROR_ALREADY_EXISTS) {
        fprintf(stderr, "pavane-host: cannot make the folder %ls\n", folder);
        return false;
    }
    gWatcher.host = host;
    gWatcher.folder = folder;
    gWatcher.walk = walk;
    gWatcher.presses = presses;
    if (folder || walk) {
        SetTimer(host, kTimer, kMilliseconds, LookForPane);
    }
    return true;
}
