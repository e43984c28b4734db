#include "views/win32/kinds/Scale.h"

#include "views/win32/machine/Module.h"

namespace korvane {
namespace {

int screenDpi() {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dpi;
}

// The font of message boxes, which the system tells for its own dots per inch.
HFONT messageFont(int dpi, bool bold) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  LOGFONTW font = metrics.lfMessageFont;
  font.lfHeight = MulDiv(font.lfHeight, dpi, screenDpi());
  font.lfWidth = 0;
  if (bold) font.lfWeight = FW_BOLD;
  return CreateFontIndirectW(&font);
}

}  // namespace

int dpiOf(HWND window) {
  using DpiOfWindow = UINT(WINAPI*)(HWND);
  const auto ask = systemFunction<DpiOfWindow>(L"user32.dll", "GetDpiForWindow");
  const int dpi = ask == nullptr ? 0 : static_cast<int>(ask(window));
  return dpi > 0 ? dpi : screenDpi();
}

Scale::Scale(int dpi)
    : ruler_(CreateCompatibleDC(nullptr)), firstFont_(GetCurrentObject(ruler_, OBJ_FONT)) {
  setDpi(dpi);
}

Scale::~Scale() {
  drop();
  DeleteDC(ruler_);
}

void Scale::setDpi(int dpi) {
  drop();
  dpi_ = dpi;
  font_ = messageFont(dpi, false);
  bold_ = messageFont(dpi, true);
  SelectObject(ruler_, font_);
  lineHeight_ = static_cast<int>(textSize(L"Xg").cy);
}

void Scale::drop() {
  SelectObject(ruler_, firstFont_);
  DeleteObject(font_);
  DeleteObject(bold_);
}

SIZE Scale::textSize(const std::wstring& text, int width) const {
  RECT room{0, 0, width, 0};
  const UINT wrap = width > 0 ? DT_WORDBREAK : 0;
  DrawTextW(ruler_, text.c_str(), static_cast<int>(text.size()), &room,
            DT_CALCRECT | DT_NOPREFIX | DT_EXPANDTABS | wrap);
  return {room.right, room.bottom};
}

}  // namespace korvane
