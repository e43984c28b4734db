#include "platform/Controls.h"
#include "views/win32/kinds/Binder.h"
#include "views/win32/kinds/Painting.h"
#include "views/win32/kinds/PushWidget.h"

namespace korvane::win32 {
namespace {

constexpr int kRoomBeside = 22;
constexpr int kRoomAbove = 11;
constexpr int kLeastWidth = 52;

class ButtonWidget : public PushWidget {
 public:
  ButtonWidget(Button& button, const Seat& seat) : PushWidget(button, seat), button_(button) {
    make(L"BUTTON", WS_TABSTOP | BS_PUSHBUTTON);
  }

  Wish measure() const override {
    const int words = scale().textWidth(caption()) + scale().px(kRoomBeside);
    const SIZE size{std::max<LONG>(words, scale().px(kLeastWidth)),
                    scale().lineHeight() + scale().px(kRoomAbove)};
    return {size, size, Grow::May, Grow::No};
  }

 protected:
  void clicked() override { button_.click(); }
  void show() override {
    setWindowText(window(), caption());
    if (shownColor_ == button_.backColor()) return;
    shownColor_ = button_.backColor();
    SendMessageW(window(), BM_SETSTYLE, button_.plain() ? BS_PUSHBUTTON : BS_OWNERDRAW, TRUE);
  }
  void draw(const DRAWITEMSTRUCT& item) override { drawPlate(item, shownColor_, caption()); }

 private:
  Button& button_;
  Color shownColor_ = -1;
};

}  // namespace

std::unique_ptr<Widget> makeWidget(Button& button, const Seat& seat) {
  return std::make_unique<ButtonWidget>(button, seat);
}

}  // namespace korvane::win32
