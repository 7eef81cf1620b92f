/*
 * For scripts: watches the dialogs of a run, takes a picture of each pane, and can walk through them.
 */
#ifndef PAVANE_HOST_PANE_WATCHER_H
#define PAVANE_HOST_PANE_WATCHER_H

#include <windows.h>

#include <stdbool.h>

/*
 * Watches the dialogs that `host` owns from now on, by a timer that fires in the modal loop of a run too.
 * Each pane that is shown, alerts too, is saved as pane-1.png, pane-2.png, ... in `folder` (NULL: no
 * pictures), which is created if it is missing. With `walk` one button of each pane is pressed: that of the
 * next id in `presses`, such as L"12,14,101", and after the last id (or if it is NULL) the default one. The
 * program ends with EXIT_STUCK when there is no such button, or no end. Returns false, with a line on stderr,
 * when the folder cannot be created.
 */
bool WatchPanes(HWND host, const wchar_t* folder, bool walk, const wchar_t* presses);

#endif
