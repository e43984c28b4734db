#pragma once

#include <windows.h>

#include <string>

namespace korvane::win32 {

/// Dots per inch of the monitor that a window is on; 96 are one pixel per unit of the layout.
int dpiOf(HWND window);

/// Sizes and type on a monitor.
class Scale {
 public:
  explicit Scale(int dpi);
  ~Scale();
  Scale(const Scale&) = delete;
  Scale& operator=(const Scale&) = delete;

  void setDpi(int dpi);
  int dpi() const { return dpi_; }
  /// Units of the layout in pixels.
  int px(int units) const { return MulDiv(units, dpi_, USER_DEFAULT_SCREEN_DPI); }
  HFONT font() const { return font_; }
  /// The font of the rows of lists, and of the coloured ones.
  HFONT listFont() const { return listFont_; }
  HFONT listBold() const { return listBold_; }
  int lineHeight() const { return lineHeight_; }
  /// Of a text with its own line ends, or broken to a width in pixels.
  SIZE textSize(const std::wstring& text, int width = 0) const;
  int textWidth(const std::wstring& text) const { return textSize(text).cx; }

 private:
  void drop();

  HDC ruler_;  // for measuring; the font is selected in it
  HGDIOBJ firstFont_;
  int dpi_ = 0;
  HFONT font_ = nullptr;
  HFONT listFont_ = nullptr;
  HFONT listBold_ = nullptr;
  int lineHeight_ = 0;
};

}  // namespace korvane::win32
