#include "window_picture.h"

#include <objbase.h>

#include <gdiplus.h>

static const CLSID kPngEncoder = {
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

static HBITMAP CopyWindow(HWND window) {
    RECT frame;
    GetWindowRect(window, &frame);
    const int width = frame.right - frame.left;
    const int height = frame.bottom - frame.top;
    HDC source = GetWindowDC(window);
    HDC target = CreateCompatibleDC(source);
    HBITMAP bitmap = CreateCompatibleBitmap(source, width, height);
    HGDIOBJ previous = SelectObject(target, bitmap);
    BitBlt(target, 0, 0, width, height, source, 0, 0, SRCCOPY);
    SelectObject(target, previous);
    DeleteDC(target);
    ReleaseDC(window, source);
    return bitmap;
}

static bool SaveBitmap(HBITMAP bitmap, const wchar_t* path) {
    GpBitmap* image = NULL;
    if (GdipCreateBitmapFromHBITMAP(bitmap, NULL, &image) != Ok) {
        return false;
    }
    const GpStatus status = GdipSaveImageToFile((GpImage*)image, path, &kPngEncoder, NULL);
    GdipDisposeImage((GpImage*)image);
    return status == Ok;
}

bool SaveWindowPicture(HWND window, const wchar_t* path) {
    GdiplusStartupInput input = {1, NULL, FALSE, FALSE};
    ULONG_PTR token;
    if (GdiplusStartup(&token, &input, NULL) != Ok) {
        return false;
    }
    RedrawWindow(window, NULL, NULL, RDW_ERASENOW | RDW_UPDATENOW | RDW_ALLCHILDREN);
    HBITMAP bitmap = CopyWindow(window);
    const bool saved = bitmap && SaveBitmap(bitmap, path);
    DeleteObject(bitmap);
    GdiplusShutdown(token);
    return saved;
}
