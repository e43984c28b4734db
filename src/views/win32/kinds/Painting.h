#pragma once

#include <windows.h>

#include <string>

#include "platform/Color.h"
#include "platform/Icons.h"

namespace korvane::win32 {

/// The colour on the screen; system colours are resolved. Both have red in the lowest byte.
inline COLORREF toColorRef(Color color) { return static_cast<COLORREF>(plainColor(color)); }

/// Draws an icon into a square at (x, y).
void drawIcon(HDC target, Icon icon, POINT at, int side, COLORREF ink);

/// The face of a push button, as the system draws it.
void drawFace(const DRAWITEMSTRUCT& item);

/// A button in a colour with a text on it.
void drawPlate(const DRAWITEMSTRUCT& item, Color color, const std::wstring& text);

void fillRect(HDC target, const RECT& area, COLORREF color);

}  // namespace korvane::win32
