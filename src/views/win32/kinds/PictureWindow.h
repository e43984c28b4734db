#pragma once

namespace korvane::win32 {

/// The window class of picture boxes.
inline constexpr const wchar_t* kPictureClass = L"Korvane.Picture";

}  // namespace korvane::win32
