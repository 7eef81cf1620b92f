/*
 * pavane-host: a small application that uses Pavane. Begin reading here.
 *
 * It has a window with a menu of the workflows, and a status line that shows how the latest run ended. A host
 * of your own needs three calls: Pavane_Initialize, Pavane_RunWorkflow and Pavane_Terminate, all on the
 * thread that owns the window. Everything else here is an ordinary Windows program. It needs no manifest,
 * because the library has its own for the look of its dialogs.
 *
 * A command line for scripts is in options.c.
 */
#include "log_lines.h"
#include "options.h"
#include "pane_watcher.h"
#include "pavane.h"
#include "status_words.h"

#include <windows.h>

#include <stdbool.h>
#include <stdio.h>
#include <wchar.h>

/* Identifies this host: any number but 2. */
#define HOST_APP 1
#define COMMAND_WORKFLOW 100 /* + 1 to 5 */
#define COMMAND_EXIT 200

static const wchar_t kWindowClass[] = L"PavaneHostWindow";

/* The status of the latest run. */
static uint16_t gLatestStatus = PAVANE_SUCCESS;
static HWND gStatusLine;

/* Shows the status in words, with the lines of the log below a failure. */
static void ShowStatus(uint16_t status, const struct LogLines* lines) {
    char text[100 + kLogLines * (kLogLineBytes + 2)];
    wchar_t wide[sizeof text];
    int length = snprintf(text, sizeof text, " 0x%04X  %s", status, StatusWords(status, lines));
    printf("status 0x%04X: %s\n", status, StatusWords(status, lines));
    for (int i = 0; i < lines->count; ++i) {
        length += sprintf(text + length, "\n %s", lines->text[i]);
        printf("log: %s\n", lines->text[i]);
    }
    fflush(stdout);
    MultiByteToWideChar(CP_UTF8, 0, text, -1, wide, sizeof wide / sizeof wide[0]);
    SetWindowTextW(gStatusLine, wide);
}

static bool IsFailure(uint16_t status) {
    return status != PAVANE_SUCCESS && !PAVANE_IS_USER_DECISION(status);
}

/*
 * The call that matters. It returns when the user has left the dialog; `window` is disabled meanwhile. The
 * window may be destroyed during the call: then the library posts the quit message again, and the message
 * loop ends.
 */
static void RunWorkflow(HWND window, uint16_t workflow) {
    const long logEnd = EndOfLog();
    struct LogLines lines = {0};
    gLatestStatus = Pavane_RunWorkflow(workflow, window);
    if (IsFailure(gLatestStatus)) {
        ReadLogLines(logEnd, &lines);
    }
    ShowStatus(gLatestStatus, &lines);
    if (gLatestStatus == PAVANE_USER_QUIT) {
        DestroyWindow(window); /* the dialog said that the application closes */
    }
}

/* The library refuses the number of a workflow that it does not have. */
static bool HasWorkflow(uint16_t workflow) { return Pavane_PreloadWorkflow(workflow) != PAVANE_BAD_ARGUMENT; }

static HMENU MakeMenu(void) {
    static const wchar_t* const names[] = {L"&Welcome", L"&Registration", L"&Privacy", L"&Connection",
                                           L"&Feedback"};
    HMENU bar = CreateMenu();
    HMENU menu = CreatePopupMenu();
    for (uint16_t i = 0; i < sizeof names / sizeof names[0]; ++i) {
        const uint16_t workflow = (uint16_t)(PAVANE_WORKFLOW_WELCOME + i);
        if (HasWorkflow(workflow)) {
            AppendMenuW(menu, MF_STRING, COMMAND_WORKFLOW + workflow, names[i]);
        }
    }
    AppendMenuW(menu, MF_SEPARATOR, 0, NULL);
    AppendMenuW(menu, MF_STRING, COMMAND_EXIT, L"E&xit");
    AppendMenuW(bar, MF_POPUP, (UINT_PTR)menu, L"&Assistant");
    return bar;
}

/* For scripts: prints the menu as the window has it. */
static void PrintMenu(HWND window) {
    const HMENU menu = GetSubMenu(GetMenu(window), 0);
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t words[40];
        if (GetMenuStringW(menu, (UINT)i, words, sizeof words / sizeof words[0], MF_BYPOSITION) > 0) {
            printf("%ls\n", words);
        }
    }
    fflush(stdout);
}

static void PlaceStatusLine(HWND window) {
    const int height = 8 + 16 * (1 + kLogLines);
    RECT area;
    GetClientRect(window, &area);
    MoveWindow(gStatusLine, 0, area.bottom - height, area.right, height, TRUE);
}

static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const UINT command = LOWORD(wparam);
    switch (message) {
    case WM_CREATE:
        gStatusLine = CreateWindowW(L"STATIC", L" No workflow has run yet.",
                                    WS_CHILD | WS_VISIBLE | SS_SUNKEN | SS_NOPREFIX, 0, 0, 0, 0, window, NULL,
                                    ((CREATESTRUCTW*)lparam)->hInstance, NULL);
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

/* For scripts: runs one workflow and returns the exit code. */
static int RunForScript(HWND window, const struct Options* options) {
    if (!WatchPanes(window, options->screenshotFolder, options->autoWalk, options->presses)) {
        return EXIT_USAGE;
    }
    RunWorkflow(window, options->workflow);
    return gLatestStatus == PAVANE_SUCCESS ? EXIT_OK : EXIT_STATUS;
}

/* A program with windows has no console: print to the console that started it, if there is one. */
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
        const struct LogLines none = {0};
        fprintf(stderr, "pavane-host: Pavane_Initialize: 0x%04X: %s\n", status, StatusWords(status, &none));
        return EXIT_STATUS;
    }
    int exitCode = EXIT_OK;
    HWND window = MakeWindow(instance);
    ShowWindow(window, show);
    if (options.printMenu) {
        PrintMenu(window);
    } else if (options.workflow != 0) {
        exitCode = RunForScript(window, &options);
    } else {
        RunMessageLoop();
    }
    Pavane_Terminate();
    return exitCode;
}
