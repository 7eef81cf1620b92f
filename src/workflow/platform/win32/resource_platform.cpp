#include "workflow/platform/resource_platform.h"

#include "values/unicode/platform/win32/wide.h"

#include <windows.h>

#include <objidl.h>

#include <gdiplus.h>
#include <shlwapi.h>

#include <memory>
#include <utility>

namespace brixen::pvn::pvn_workflow::platform {

namespace {

using lyr::gen::Wide;

ULONG_PTR& DecoderToken() {
    static ULONG_PTR token = 0;
    return token;
}

struct ImageDisposer {
    void operator()(Gdiplus::GpBitmap* bitmap) const { Gdiplus::DllExports::GdipDisposeImage(bitmap); }
};
using Image = std::unique_ptr<Gdiplus::GpBitmap, ImageDisposer>;

struct BitmapDeleter {
    using pointer = HBITMAP;
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using Bitmap = std::unique_ptr<HBITMAP, BitmapDeleter>;

struct Size {
    UINT width = 0, height = 0;
};

Image OpenImage(const char16_t* path) {
    Gdiplus::GpBitmap* bitmap = nullptr;
    if (Gdiplus::DllExports::GdipCreateBitmapFromFile(Wide(path), &bitmap) != Gdiplus::Ok) return nullptr;
    return Image(bitmap);
}

// Returns 0 for both if the image does not say, or if 31 bits do not hold it.
Size SizeOf(Gdiplus::GpBitmap* image) {
    Size size;
    if (Gdiplus::DllExports::GdipGetImageWidth(image, &size.width) != Gdiplus::Ok) return {};
    if (Gdiplus::DllExports::GdipGetImageHeight(image, &size.height) != Gdiplus::Ok) return {};
    return size.width > MAXLONG || size.height > MAXLONG ? Size{} : size;
}

bool HasAlpha(Gdiplus::GpBitmap* image) {
    Gdiplus::PixelFormat format = 0;
    return Gdiplus::DllExports::GdipGetImagePixelFormat(image, &format) == Gdiplus::Ok &&
           (format & PixelFormatAlpha) != 0;
}

struct DibSection {
    Bitmap bitmap;
    void* bits = nullptr;
};

DibSection MakeDibSection(Size size, WORD bitsPerPixel) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = static_cast<LONG>(size.width);
    info.bmiHeader.biHeight = static_cast<LONG>(size.height);
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = bitsPerPixel;
    DibSection section;
    section.bitmap.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &section.bits, nullptr, 0));
    return section;
}

// GdipCreateHBITMAPFromBitmap always makes 32 bits, so the decoder writes into our own pixels.
bool CopyPixels(Gdiplus::GpBitmap* image, Size size, bool hasAlpha, void* bits) {
    const std::int64_t rowBytes = ((hasAlpha ? 4LL : 3LL) * size.width + 3) / 4 * 4;
    const std::int64_t lastRow = rowBytes * (static_cast<std::int64_t>(size.height) - 1);
    if (rowBytes > MAXLONG) return false;
    Gdiplus::BitmapData target;
    target.Width = size.width;
    target.Height = size.height;
    target.Stride = -static_cast<INT>(rowBytes);
    target.PixelFormat = hasAlpha ? PixelFormat32bppARGB : PixelFormat24bppRGB;
    target.Scan0 = static_cast<std::byte*>(bits) + lastRow;
    target.Reserved = 0;
    const Gdiplus::Rect all(0, 0, static_cast<INT>(size.width), static_cast<INT>(size.height));
    const UINT mode = Gdiplus::ImageLockModeRead | Gdiplus::ImageLockModeUserInputBuf;
    if (Gdiplus::DllExports::GdipBitmapLockBits(image, &all, mode, target.PixelFormat, &target) !=
        Gdiplus::Ok) {
        return false;
    }
    return Gdiplus::DllExports::GdipBitmapUnlockBits(image, &target) == Gdiplus::Ok;
}

} // namespace

std::u16string LibraryFolder() {
    HMODULE module = nullptr;
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    GetModuleHandleExW(flags, reinterpret_cast<LPCWSTR>(&LibraryFolder), &module);
    wchar_t path[kPathUnits] = {};
    GetModuleFileNameW(module, path, static_cast<DWORD>(kPathUnits));
    path[kPathUnits - 1] = 0; // some systems cut without a terminator
    PathRemoveFileSpecW(path);
    return reinterpret_cast<const char16_t*>(path);
}

bool StartDecoder() noexcept {
    const Gdiplus::GdiplusStartupInput input;
    return Gdiplus::GdiplusStartup(&DecoderToken(), &input, nullptr) == Gdiplus::Ok;
}

void StopDecoder() noexcept { Gdiplus::GdiplusShutdown(std::exchange(DecoderToken(), 0)); }

DecodedBitmap DecodeBitmap(const char16_t* path) {
    const Image image = OpenImage(path);
    if (!image) return {};
    const Size size = SizeOf(image.get());
    if (std::uint64_t{size.width} * size.height > kMostBitmapPixels) return {};
    const bool hasAlpha = HasAlpha(image.get());
    DibSection section = MakeDibSection(size, hasAlpha ? 32 : 24);
    if (!section.bitmap || !CopyPixels(image.get(), size, hasAlpha, section.bits)) return {};
    return {reinterpret_cast<zeve::NativeBitmap>(section.bitmap.release()), 0};
}

void DeleteBitmap(zeve::NativeBitmap bitmap) noexcept {
    if (bitmap) DeleteObject(reinterpret_cast<HBITMAP>(bitmap));
}

} // namespace brixen::pvn::pvn_workflow::platform
