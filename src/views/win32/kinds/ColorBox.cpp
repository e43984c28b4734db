#include "platform/Controls.h"
#include "views/win32/kinds/Binder.h"
#include "views/win32/kinds/Painting.h"
#include "views/win32/kinds/PushWidget.h"

namespace korvane::win32 {
namespace {

constexpr SIZE kRoomOfColor{56, 26};
constexpr int kLeastOfColor = 30;
constexpr int kRoomBesideCaption = 64;  // beside a caption: the colour must be seen

class ColorWidget : public PushWidget {
 public:
  ColorWidget(ColorBox& box, const Seat& seat) : PushWidget(box, seat), box_(box) {
    make(L"BUTTON", WS_TABSTOP | BS_OWNERDRAW);
  }

  Wish measure() const override {
    const std::wstring text = caption();
    const int words = text.empty() ? 0 : scale().textWidth(text) + scale().px(kRoomBesideCaption);
    const LONG height = scale().px(kRoomOfColor.cy);
    return {{std::max(words, scale().px(kLeastOfColor)), height},
            {std::max(words, scale().px(kRoomOfColor.cx)), height},
            Grow::Wants,
            Grow::May};
  }

 protected:
  void clicked() override { box_.click(); }
  void show() override {
    setWindowText(window(), caption());
    InvalidateRect(window(), nullptr, FALSE);
  }
  void draw(const DRAWITEMSTRUCT& item) override { drawPlate(item, box_.backColor(), caption()); }

 private:
  ColorBox& box_;
};

}  // namespace

std::unique_ptr<Widget> makeWidget(ColorBox& box, const Seat& seat) {
  return std::make_unique<ColorWidget>(box, seat);
}

}  // namespace korvane::win32
