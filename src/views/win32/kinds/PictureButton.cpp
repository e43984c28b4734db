#include "platform/Controls.h"
#include "views/win32/kinds/Binder.h"
#include "views/win32/kinds/Painting.h"
#include "views/win32/kinds/PushWidget.h"

namespace korvane::win32 {
namespace {

constexpr int kSideOfButton = 28;
constexpr int kIconSide = 16;
constexpr int kFocusInset = 3;

// It is pressed by the program alone: a click does not toggle it.
class IconWidget : public PushWidget {
 public:
  IconWidget(PictureButton& button, const Seat& seat) : PushWidget(button, seat), button_(button) {
    make(L"BUTTON", WS_TABSTOP | BS_OWNERDRAW);
  }

  Wish measure() const override {
    const SIZE size{scale().px(kSideOfButton), scale().px(kSideOfButton)};
    return {size, size};
  }

 protected:
  void clicked() override { button_.click(); }

  // The tool tip is what a screen reader reads out.
  void show() override {
    setWindowText(window(), toWide(button_.look().toolTip));
    if (pressed_ == button_.pressed()) return;
    pressed_ = button_.pressed();
    InvalidateRect(window(), nullptr, FALSE);
  }

  void draw(const DRAWITEMSTRUCT& item) override {
    drawFace(item);
    RECT inside = item.rcItem;
    InflateRect(&inside, -scale().px(kFocusInset), -scale().px(kFocusInset));
    if (pressed_) fillRect(item.hDC, inside, GetSysColor(COLOR_HIGHLIGHT));
    const int side = scale().px(kIconSide);
    const POINT at{(item.rcItem.right - side) / 2, (item.rcItem.bottom - side) / 2};
    drawIcon(item.hDC, button_.icon(), at, side, ink(item.itemState));
    if ((item.itemState & ODS_FOCUS) != 0) DrawFocusRect(item.hDC, &inside);
  }

 private:
  COLORREF ink(UINT state) const {
    if (pressed_) return GetSysColor(COLOR_HIGHLIGHTTEXT);
    return GetSysColor((state & ODS_DISABLED) != 0 ? COLOR_GRAYTEXT : COLOR_BTNTEXT);
  }

  PictureButton& button_;
  bool pressed_ = false;
};

}  // namespace

std::unique_ptr<Widget> makeWidget(PictureButton& button, const Seat& seat) {
  return std::make_unique<IconWidget>(button, seat);
}

}  // namespace korvane::win32
