#include "platform/PictureBox.h"

#include <windowsx.h>

#include <algorithm>

#include "platform/Damage.h"
#include "views/win32/kinds/Binder.h"
#include "views/win32/kinds/Painting.h"
#include "views/win32/kinds/PictureWindow.h"

namespace korvane::win32 {
namespace {

using Sizing = PictureBox::Sizing;

constexpr int kFixedEnlargement = 2;  // of a box that keeps its size, if there is room
constexpr int kLeastSide = 96;        // of a box that grows, in units of the layout
constexpr int kLargestSide = 260;     // of a box that grows, at first

// A colour has red in its lowest byte, other than the system's pictures.
struct PictureInfo {
  BITMAPINFOHEADER header{};
  DWORD masks[3] = {0xFF, 0xFF00, 0xFF0000};
};

POINT pointOf(LPARAM l) { return {GET_X_LPARAM(l), GET_Y_LPARAM(l)}; }

/// Copies a picture box's pixels to the screen, each one as a whole number of the screen's own
/// pixels, and hands on the mouse in pixels of the box.
class PictureWidget : public Widget {
 public:
  PictureWidget(PictureBox& box, const Seat& seat)
      : Widget(box, seat), box_(box), width_(box.width()), height_(box.height()) {
    make(kPictureClass, 0);
    box.onPixels = [this](int x1, int y1, int x2, int y2) { note(x1, y1, x2, y2); };
  }
  ~PictureWidget() override { box_.onPixels = nullptr; }

  Wish measure() const override {
    if (box_.sizing() == Sizing::Fixed) {
      const SIZE least{scale().px(width_), scale().px(height_)};
      return {least,
              {least.cx * kFixedEnlargement, least.cy * kFixedEnlargement},
              Grow::May,
              Grow::May};
    }
    const auto side = [this](int pixels, int most) -> LONG {
      return scale().px(std::min(pixels, most));
    };
    return {{side(width_, kLeastSide), side(height_, kLeastSide)},
            {side(width_, kLargestSide), side(height_, kLargestSide)},
            Grow::Wants,
            Grow::Wants};
  }

  void arrange(const RECT& place) override {
    Widget::arrange(place);
    fit();
    InvalidateRect(window(), nullptr, FALSE);
  }

 protected:
  void show() override { InvalidateRect(window(), nullptr, FALSE); }
  std::optional<LRESULT> message(UINT message, WPARAM w, LPARAM l) override;

 private:
  RECT area() const {
    RECT area;
    GetClientRect(window(), &area);
    return area;
  }
  // Screen pixels per pixel of the box.
  int factor() const {
    if (box_.sizing() != Sizing::Fixed || box_.width() == 0 || box_.height() == 0) return 1;
    const RECT room = area();
    return std::max<int>(1, std::min(room.right / box_.width(), room.bottom / box_.height()));
  }
  // Where the box begins in the window.
  POINT origin() const {
    const RECT room = area();
    return {std::max<LONG>(0, (room.right - box_.width() * factor()) / 2),
            std::max<LONG>(0, (room.bottom - box_.height() * factor()) / 2)};
  }
  POINT toBox(POINT at) const {
    const auto pixel = [this](LONG distance) -> LONG {
      return distance < 0 ? -1 : distance / factor();
    };
    return {pixel(at.x - origin().x), pixel(at.y - origin().y)};
  }

  RECT toWindow(const Damage::Area& pixels) const {
    const POINT from = origin();
    return {from.x + pixels.x1 * factor(), from.y + pixels.y1 * factor(),
            from.x + (pixels.x2 + 1) * factor(), from.y + (pixels.y2 + 1) * factor()};
  }

  // All that changes before the messages are through is painted once, when the system finds time:
  // it asks for that by itself, without an area that would have to grow with each cell.
  void note(int x1, int y1, int x2, int y2) {
    if (damage_.add(x1, y1, x2, y2)) RedrawWindow(window(), nullptr, nullptr, RDW_INTERNALPAINT);
  }

  void fit();
  void paint();
  void paintGround(HDC target) const;
  void paintPixels(HDC target, const RECT& exposed) const;
  void paintOverlay(HDC target) const;
  void press(POINT at, bool twice);
  void move(POINT at, bool held);
  void release(POINT at);
  void leave();

  PictureBox& box_;
  int width_;  // as it was declared
  int height_;
  Damage damage_;
  bool followed_ = false;  // the system will tell when the pointer leaves
};

// Gives a box that grows the screen pixels that there are: all of them, or the largest square.
void PictureWidget::fit() {
  const RECT room = area();
  if (box_.sizing() == Sizing::Fixed || room.right == 0 || room.bottom == 0) return;
  int width = static_cast<int>(room.right);
  int height = static_cast<int>(room.bottom);
  if (box_.sizing() == Sizing::Square) width = height = std::min(width, height);
  seat().gate.run([&] { box_.resize(width, height); });
}

void PictureWidget::paint() {
  const Damage::Area area = damage_.take(box_.width(), box_.height());
  if (!area.empty()) {
    const RECT place = toWindow(area);
    InvalidateRect(window(), &place, FALSE);
  }
  PAINTSTRUCT paint;
  const HDC target = BeginPaint(window(), &paint);
  paintGround(target);
  paintPixels(target, paint.rcPaint);
  paintOverlay(target);
  EndPaint(window(), &paint);
}

// Of the raster, the lines and columns that lie in the exposed part.
void PictureWidget::paintPixels(HDC target, const RECT& exposed) const {
  const POINT first = toBox({exposed.left, exposed.top});
  const POINT last = toBox({exposed.right - 1, exposed.bottom - 1});
  const Damage::Area part{std::max<int>(first.x, 0), std::max<int>(first.y, 0),
                          std::min<int>(last.x, box_.width() - 1),
                          std::min<int>(last.y, box_.height() - 1)};
  if (part.empty()) return;
  PictureInfo info;
  info.header.biSize = sizeof info.header;
  info.header.biWidth = box_.width();
  info.header.biHeight = -part.height();
  info.header.biPlanes = 1;
  info.header.biBitCount = 32;
  info.header.biCompression = BI_BITFIELDS;
  const RECT place = toWindow(part);
  SetStretchBltMode(target, COLORONCOLOR);
  StretchDIBits(target, place.left, place.top, place.right - place.left, place.bottom - place.top,
                part.x1, 0, part.width(), part.height(), box_.raster().line(part.y1),
                reinterpret_cast<const BITMAPINFO*>(&info), DIB_RGB_COLORS, SRCCOPY);
}

// What the box leaves over of its window.
void PictureWidget::paintGround(HDC target) const {
  const RECT room = area();
  const POINT at = origin();
  const LONG right = at.x + box_.width() * factor();
  const LONG bottom = at.y + box_.height() * factor();
  const RECT parts[] = {{0, 0, room.right, at.y},
                        {0, bottom, room.right, room.bottom},
                        {0, at.y, at.x, bottom},
                        {right, at.y, room.right, bottom}};
  for (const RECT& part : parts) FillRect(target, &part, GetSysColorBrush(COLOR_BTNFACE));
}

void PictureWidget::paintOverlay(HDC target) const {
  const POINT from = origin();
  const auto middle = [&](int pixel, LONG first) {
    return static_cast<int>(first) + pixel * factor() + factor() / 2;
  };
  for (const PictureBox::Line& line : box_.overlay()) {
    const HPEN pen = CreatePen(PS_SOLID, factor(), toColorRef(line.color));
    const HGDIOBJ before = SelectObject(target, pen);
    MoveToEx(target, middle(line.x1, from.x), middle(line.y1, from.y), nullptr);
    LineTo(target, middle(line.x2, from.x), middle(line.y2, from.y));
    SetPixel(target, middle(line.x2, from.x), middle(line.y2, from.y), toColorRef(line.color));
    SelectObject(target, before);
    DeleteObject(pen);
  }
}

void PictureWidget::press(POINT at, bool twice) {
  SetCapture(window());
  const POINT pixel = toBox(at);
  twice ? box_.twice(pixel.x, pixel.y, seat().gate) : box_.press(pixel.x, pixel.y, seat().gate);
}

void PictureWidget::move(POINT at, bool held) {
  if (!followed_) {
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window(), 0};
    followed_ = TrackMouseEvent(&track) != FALSE;
  }
  const POINT pixel = toBox(at);
  box_.move(pixel.x, pixel.y, held, seat().gate);
}

void PictureWidget::release(POINT at) {
  const RECT room = area();
  if (GetCapture() == window()) ReleaseCapture();
  const POINT pixel = toBox(at);
  box_.release(pixel.x, pixel.y, PtInRect(&room, at) != FALSE, seat().gate);
}

void PictureWidget::leave() {
  followed_ = false;
  box_.leave(seat().gate);
}

std::optional<LRESULT> PictureWidget::message(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_PAINT:
      paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      press(pointOf(l), message == WM_LBUTTONDBLCLK);
      return 0;
    case WM_MOUSEMOVE:
      move(pointOf(l), (w & MK_LBUTTON) != 0);
      return 0;
    case WM_LBUTTONUP:
      release(pointOf(l));
      return 0;
    case WM_MOUSELEAVE:
      leave();
      return 0;
    default:
      return std::nullopt;
  }
}

}  // namespace

std::unique_ptr<Widget> makeWidget(PictureBox& box, const Seat& seat) {
  return std::make_unique<PictureWidget>(box, seat);
}

}  // namespace korvane::win32
