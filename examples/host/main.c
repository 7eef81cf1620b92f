/*
 * pavane-host: the smallest application that uses Pavane, and the place to begin reading.
 *
 * It has a window with a menu of the five workflows, and a status line that shows how the latest one ended.
 * What a host of your own needs is in three calls: Pavane_Initialize, Pavane_RunWorkflow and
 * Pavane_Terminate, all on the thread that owns the window. Everything else here is an ordinary Windows
 * program, without even a manifest: the library brings the look of its dialogs along.
 *
 * For scripts there is a command line, see options.c.
 */
#include "options.h"
#include "pane_watcher.h"
#include "pavane.h"
#include "status_words.h"

#include <windows.h>

#include <stdio.h>
#include <wchar.h>

/* The number by which this host makes itself known: any but 2. */
#define HOST_APP 1
#define COMMAND_WORKFLOW 100 /* + 1 to 5 */
#define COMMAND_EXIT 200

static const wchar_t kWindowClass[] = L"PavaneHostWindow";

/* The status that the status line shows. */
static uint16_t gLatestStatus = PAVANE_SUCCESS;
static HWND gStatusLine;

static void ShowStatus(uint16_t status) {
    wchar_t text[200];
    swprintf(text, sizeof text / sizeof text[0], L" 0x%04X  %hs", status, StatusWords(status));
    SetWindowTextW(gStatusLine, text);
    printf("status 0x%04X: %s\n", status, StatusWords(status));
    fflush(stdout);
}

/* The call that matters. It returns when the user has left the dialog; `window` is disabled meanwhile. */
static void RunWorkflow(HWND window, uint16_t workflow) {
    gLatestStatus = Pavane_RunWorkflow(workflow, window);
    ShowStatus(gLatestStatus);
    if (gLatestStatus == PAVANE_USER_QUIT) {
        DestroyWindow(window); /* the user was told that the application ends */
    }
}

static HMENU MakeMenu(void) {
    static const wchar_t* const workflows[] = {L"&Welcome", L"&Registration", L"&Privacy", L"&Connection",
                                               L"&Feedback"};
    HMENU bar = CreateMenu();
    HMENU menu = CreatePopupMenu();
    for (UINT i = 0; i < sizeof workflows / sizeof workflows[0]; ++i) {
        AppendMenuW(menu, MF_STRING, COMMAND_WORKFLOW + PAVANE_WORKFLOW_WELCOME + i, workflows[i]);
    }
    AppendMenuW(menu, MF_SEPARATOR, 0, NULL);
    AppendMenuW(menu, MF_STRING, COMMAND_EXIT, L"E&xit");
    AppendMenuW(bar, MF_POPUP, (UINT_PTR)menu, L"&Assistant");
    return bar;
}

static void PlaceStatusLine(HWND window) {
    const int height = 22;
    RECT area;
    GetClientRect(window, &area);
    MoveWindow(gStatusLine, 0, area.bottom - height, area.right, height, TRUE);
}

static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const UINT command = LOWORD(wparam);
    switch (message) {
    case WM_CREATE:
        gStatusLine = CreateWindowW(L"STATIC", L" No workflow has run yet.",
                                    WS_CHILD | WS_VISIBLE | SS_SUNKEN | SS_CENTERIMAGE, 0, 0, 0, 0, window,
                                    NULL, ((CREATESTRUCTW*)lparam)->hInstance, NULL);
        SendMessageW(gStatusLine, WM_SETFONT, (WPARAM)GetStockObject(DEFAULT_GUI_FONT), FALSE);
        return 0;
    case WM_SIZE: PlaceStatusLine(window); return 0;
    case WM_COMMAND:
        if (command == COMMAND_EXIT) {
            DestroyWindow(window);
        } else if (command > COMMAND_WORKFLOW && command <= COMMAND_WORKFLOW + PAVANE_WORKFLOW_FEEDBACK) {
            RunWorkflow(window, (uint16_t)(command - COMMAND_WORKFLOW));
        }
        return 0;
    case WM_DESTROY: PostQuitMessage(0); return 0;
    default: return DefWindowProcW(window, message, wparam, lparam);
    }
}

static HWND MakeWindow(HINSTANCE instance) {
    WNDCLASSW windowClass = {0};
    windowClass.lpfnWndProc = WindowProcedure;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursor(NULL, IDC_ARROW);
    windowClass.hbrBackground = (HBRUSH)(COLOR_APPWORKSPACE + 1);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassW(&windowClass);
    return CreateWindowW(kWindowClass, L"Pavane Host", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, 720,
                         540, NULL, MakeMenu(), instance, NULL);
}

static void RunMessageLoop(void) {
    MSG message;
    while (GetMessageW(&message, NULL, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

/* One workflow and out, for scripts. */
static int RunForScript(HWND window, const struct Options* options) {
    if (!WatchPanes(window, options->screenshotFolder, options->autoWalk)) {
        return EXIT_USAGE;
    }
    RunWorkflow(window, options->workflow);
    return gLatestStatus == PAVANE_SUCCESS ? EXIT_OK : EXIT_STATUS;
}

/* A program with windows has no console: show what it prints where it was started from, if that is a console.
 */
static void FindConsole(void) {
    if (!GetStdHandle(STD_OUTPUT_HANDLE) && AttachConsole(ATTACH_PARENT_PROCESS)) {
        freopen("CONOUT$", "w", stdout);
        freopen("CONOUT$", "w", stderr);
    }
}

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previous, LPWSTR commandLine, int show) {
    (void)previous;
    (void)commandLine;
    FindConsole();

    struct Options options;
    if (!ReadOptions(__argc, __wargv, &options)) {
        return EXIT_USAGE;
    }
    const uint16_t status = Pavane_Initialize(HOST_APP, PAVANE_HOST_OPTIONS(options.language, 0));
    if (status != PAVANE_SUCCESS) {
        fprintf(stderr, "pavane-host: Pavane_Initialize: 0x%04X: %s\n", status, StatusWords(status));
        return EXIT_STATUS;
    }
    int exitCode = EXIT_OK;
    HWND window = MakeWindow(instance);
    ShowWindow(window, show);
    if (options.workflow != 0) {
        exitCode = RunForScript(window, &options);
    } else {
        RunMessageLoop();
    }
    Pavane_Terminate();
    return exitCode;
}
