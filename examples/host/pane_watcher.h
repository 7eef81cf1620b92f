/*
 * For scripts: looks at the dialogs that a run opens, takes a picture of each pane, and can walk through
 * them.
 */
#ifndef PAVANE_HOST_PANE_WATCHER_H
#define PAVANE_HOST_PANE_WATCHER_H

#include <windows.h>

#include <stdbool.h>

/*
 * Watches the dialogs that `host` owns from now on, by a timer that the modal loop of a run keeps alive. Each
 * pane that comes up, alerts too, is saved as pane-1.png, pane-2.png, ... in `folder` (null: no pictures),
 * which is made if need be. With `walk` the default button of each pane is pressed once; where there is none,
 * or no end, the program ends with EXIT_STUCK. False, with a line on stderr, if the folder cannot be made.
 */
bool WatchPanes(HWND host, const wchar_t* folder, bool walk);

#endif
