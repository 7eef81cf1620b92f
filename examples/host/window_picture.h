/* A window as a PNG file. */
#ifndef PAVANE_HOST_WINDOW_PICTURE_H
#define PAVANE_HOST_WINDOW_PICTURE_H

#include <windows.h>

#include <stdbool.h>

/* Finishes pending painting, then writes the window with its frame to `path`. Returns false on failure. */
bool SaveWindowPicture(HWND window, const wchar_t* path);

#endif
