#include "platform/Controls.h"
#include "views/win32/kinds/Binder.h"
#include "views/win32/kinds/Painting.h"
#include "views/win32/kinds/PushWidget.h"

namespace korvane::win32 {
namespace {

constexpr int kRoomBesideItem = 22;
constexpr int kRoomAboveItem = 11;
constexpr Color kLit = rgb(242, 179, 64);

/// The button of a menu item; the menu itself belongs to the window.
class MenuItemWidget : public PushWidget {
 public:
  MenuItemWidget(MenuItem& item, const Seat& seat) : PushWidget(item, seat), item_(item) {
    make(L"BUTTON", WS_TABSTOP | BS_PUSHBUTTON);
  }

  Wish measure() const override {
    const SIZE size{scale().textWidth(caption()) + scale().px(kRoomBesideItem),
                    scale().lineHeight() + scale().px(kRoomAboveItem)};
    return {size, size, Grow::May, Grow::No};
  }

 protected:
  void clicked() override { item_.click(); }
  void show() override {
    setWindowText(window(), caption());
    SendMessageW(window(), BM_SETSTYLE, item_.lit() ? BS_OWNERDRAW : BS_PUSHBUTTON, TRUE);
  }
  void draw(const DRAWITEMSTRUCT& item) override { drawPlate(item, kLit, caption()); }

 private:
  MenuItem& item_;
};

}  // namespace

std::unique_ptr<Widget> makeWidget(MenuItem& item, const Seat& seat) {
  return std::make_unique<MenuItemWidget>(item, seat);
}

}  // namespace korvane::win32
