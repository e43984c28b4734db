#include "views/win32/kinds/Scale.h"

#include "views/win32/machine/Module.h"

namespace korvane::win32 {
namespace {

int screenDpi() {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dpi;
}

constexpr const wchar_t* kListFace = L"Verdana";

// The font of message boxes, which the system tells for its own dots per inch.
LOGFONTW messageFont(int dpi) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  LOGFONTW font = metrics.lfMessageFont;
  font.lfHeight = MulDiv(font.lfHeight, dpi, screenDpi());
  font.lfWidth = 0;
  return font;
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
  LOGFONTW font = messageFont(dpi);
  font_ = CreateFontIndirectW(&font);
  lstrcpynW(font.lfFaceName, kListFace, LF_FACESIZE);
  listFont_ = CreateFontIndirectW(&font);
  font.lfWeight = FW_BOLD;
  listBold_ = CreateFontIndirectW(&font);
  SelectObject(ruler_, font_);
  lineHeight_ = static_cast<int>(textSize(L"Xg").cy);
}

void Scale::drop() {
  SelectObject(ruler_, firstFont_);
  for (const HFONT font : {font_, listFont_, listBold_}) DeleteObject(font);
}

SIZE Scale::textSize(const std::wstring& text, int width) const {
  RECT room{0, 0, width, 0};
  const UINT wrap = width > 0 ? DT_WORDBREAK : 0;
  DrawTextW(ruler_, text.c_str(), static_cast<int>(text.size()), &room,
            DT_CALCRECT | DT_NOPREFIX | DT_EXPANDTABS | wrap);
  return {room.right, room.bottom};
}

}  // namespace korvane::win32
