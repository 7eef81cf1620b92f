// Casts from the UTF-16 text of this library to that of Windows, which has the same layout.
#pragma once

namespace brixen::lyr::gen {

inline const wchar_t* Wide(const char16_t* text) { return reinterpret_cast<const wchar_t*>(text); }
inline wchar_t* Wide(char16_t* text) { return reinterpret_cast<wchar_t*>(text); }

} // namespace brixen::lyr::gen
