#include "views/win32/kinds/Painting.h"

#include <uxtheme.h>
#include <vssym32.h>

#include <array>
#include <cstdint>
#include <vector>

namespace korvane::win32 {
namespace {

constexpr int kFiner = 4;       // an icon is drawn this much larger, for smooth edges
constexpr int kLineShare = 12;  // an icon's lines are this part of its square

// A picture of 32 bits a pixel, from the top, with a drawing context of its own.
class Sheet {
 public:
  Sheet(int width, int height) : context_(CreateCompatibleDC(nullptr)) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    bitmap_ = CreateDIBSection(context_, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    pixels_ = static_cast<std::uint32_t*>(pixels);
    before_ = SelectObject(context_, bitmap_);
  }
  ~Sheet() {
    SelectObject(context_, before_);
    DeleteObject(bitmap_);
    DeleteDC(context_);
  }
  Sheet(const Sheet&) = delete;
  Sheet& operator=(const Sheet&) = delete;

  HDC context() const { return context_; }
  std::uint32_t* pixels() const { return pixels_; }

 private:
  HDC context_;
  HBITMAP bitmap_;
  HGDIOBJ before_;
  std::uint32_t* pixels_;
};

void drawPart(HDC target, const IconPart& part, int side) {
  std::vector<POINT> points;
  for (const auto& [x, y] : part.points)
    points.push_back({static_cast<LONG>(x * side), static_cast<LONG>(y * side)});
  if (part.closed) points.push_back(points.front());
  const auto count = static_cast<int>(points.size());
  part.filled ? Polygon(target, points.data(), count) : Polyline(target, points.data(), count);
}

void drawMask(HDC target, Icon icon, int side) {
  const LOGBRUSH white{BS_SOLID, RGB(255, 255, 255), 0};
  const HPEN line = ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND,
                                 static_cast<DWORD>(side / kLineShare), &white, 0, nullptr);
  const HGDIOBJ brush = SelectObject(target, GetStockObject(WHITE_BRUSH));
  for (const IconPart& part : iconParts(icon)) {
    const HGDIOBJ pen = SelectObject(target, part.filled ? GetStockObject(NULL_PEN) : line);
    drawPart(target, part, side);
    SelectObject(target, pen);
  }
  SelectObject(target, brush);
  DeleteObject(line);
  GdiFlush();
}

// How much of a pixel the finer picture covers, 0 - 255.
int coverage(const std::uint32_t* mask, int side, int x, int y) {
  int sum = 0;
  for (int dy = 0; dy < kFiner; ++dy) {
    for (int dx = 0; dx < kFiner; ++dx)
      sum += static_cast<int>(mask[(y * kFiner + dy) * side * kFiner + x * kFiner + dx] & 255);
  }
  return sum / (kFiner * kFiner);
}

void frameRect(HDC target, const RECT& area, int width, COLORREF color) {
  RECT line = area;
  const HBRUSH brush = CreateSolidBrush(color);
  for (int i = 0; i < width; ++i) {
    FrameRect(target, &line, brush);
    InflateRect(&line, -1, -1);
  }
  DeleteObject(brush);
}

int faceState(UINT state) {
  if ((state & ODS_DISABLED) != 0) return PBS_DISABLED;
  return (state & ODS_SELECTED) != 0 ? PBS_PRESSED : PBS_NORMAL;
}

}  // namespace

void fillRect(HDC target, const RECT& area, COLORREF color) {
  const HBRUSH brush = CreateSolidBrush(color);
  FillRect(target, &area, brush);
  DeleteObject(brush);
}

void drawIcon(HDC target, Icon icon, POINT at, int side, COLORREF ink) {
  const Sheet mask(side * kFiner, side * kFiner);
  drawMask(mask.context(), icon, side * kFiner);
  const Sheet picture(side, side);
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      const int alpha = coverage(mask.pixels(), side, x, y);
      const auto part = [alpha](int value) {
        return static_cast<std::uint32_t>(value * alpha / 255);
      };
      picture.pixels()[y * side + x] = static_cast<std::uint32_t>(alpha) << 24 |
                                       part(GetRValue(ink)) << 16 | part(GetGValue(ink)) << 8 |
                                       part(GetBValue(ink));
    }
  }
  const BLENDFUNCTION over{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
  AlphaBlend(target, at.x, at.y, side, side, picture.context(), 0, 0, side, side, over);
}

void drawFace(const DRAWITEMSTRUCT& item) {
  RECT area = item.rcItem;
  const HTHEME theme = OpenThemeData(item.hwndItem, L"BUTTON");
  if (theme == nullptr) {
    const UINT pressed = (item.itemState & ODS_SELECTED) != 0 ? DFCS_PUSHED : 0;
    DrawFrameControl(item.hDC, &area, DFC_BUTTON, DFCS_BUTTONPUSH | pressed);
    return;
  }
  DrawThemeParentBackground(item.hwndItem, item.hDC, &area);
  DrawThemeBackground(theme, item.hDC, BP_PUSHBUTTON, faceState(item.itemState), &area, nullptr);
  CloseThemeData(theme);
}

void drawPlate(const DRAWITEMSTRUCT& item, Color color, const std::wstring& text) {
  const bool focused = (item.itemState & ODS_FOCUS) != 0;
  RECT area = item.rcItem;
  fillRect(item.hDC, area, toColorRef(color));
  frameRect(item.hDC, area, focused ? 2 : 1,
            GetSysColor(focused ? COLOR_HIGHLIGHT : COLOR_BTNSHADOW));
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, toColorRef(inkOn(color)));
  DrawTextW(item.hDC, text.c_str(), static_cast<int>(text.size()), &area,
            DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

}  // namespace korvane::win32
