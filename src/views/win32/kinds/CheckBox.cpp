#include "platform/Controls.h"
#include "views/win32/kinds/Binder.h"
#include "views/win32/kinds/PushWidget.h"

namespace korvane::win32 {
namespace {

constexpr int kMark = 22;  // width of the mark and the gap beside it
constexpr int kRoomAboveBox = 6;

class CheckWidget : public PushWidget {
 public:
  CheckWidget(CheckBox& box, const Seat& seat) : PushWidget(box, seat), box_(box) {
    make(L"BUTTON", WS_TABSTOP | BS_CHECKBOX);
  }

  Wish measure() const override {
    const SIZE size{scale().textWidth(caption()) + scale().px(kMark),
                    scale().lineHeight() + scale().px(kRoomAboveBox)};
    return {size, size};
  }

 protected:
  void clicked() override { box_.click(); }
  void show() override {
    setWindowText(window(), caption());
    SendMessageW(window(), BM_SETCHECK, box_.checked() ? BST_CHECKED : BST_UNCHECKED, 0);
  }

 private:
  CheckBox& box_;
};

}  // namespace

std::unique_ptr<Widget> makeWidget(CheckBox& box, const Seat& seat) {
  return std::make_unique<CheckWidget>(box, seat);
}

}  // namespace korvane::win32
