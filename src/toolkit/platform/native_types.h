// Handles of the window system, opaque above the platform folders. Null means none.
#pragma once

namespace brixen::zeve {

using NativeWindow = struct NativeWindowTag*;
using NativeModule = struct NativeModuleTag*;
using NativeFont = struct NativeFontTag*;
using NativeBitmap = struct NativeBitmapTag*;
using NativeIcon = struct NativeIconTag*;
using NativeBrush = struct NativeBrushTag*;
using NativeCursor = struct NativeCursorTag*;
using NativeDpiContext = struct NativeDpiContextTag*; // of a thread
using NativeDrawing = struct NativeDrawingTag*;       // a device context

} // namespace brixen::zeve
