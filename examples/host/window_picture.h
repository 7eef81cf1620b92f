/* A window as a PNG file. */
#ifndef PAVANE_HOST_WINDOW_PICTURE_H
#define PAVANE_HOST_WINDOW_PICTURE_H

#include <windows.h>

#include <stdbool.h>

/* Paints what waits to be painted, then writes the window with its frame to `path`. */
bool SaveWindowPicture(HWND window, const wchar_t* path);

#endif
