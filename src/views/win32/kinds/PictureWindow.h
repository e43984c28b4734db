#pragma once

namespace korvane {

/// The window class of picture boxes.
inline constexpr const wchar_t* kPictureClass = L"Korvane.Picture";

}  // namespace korvane
