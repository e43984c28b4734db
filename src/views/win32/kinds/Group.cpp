#include "views/win32/kinds/Binder.h"

namespace korvane::win32 {
namespace {

constexpr int kRoomBesideTitle = 20;

// The controls inside the group are its windows, so they come and go with it.
class GroupWidget : public Widget {
 public:
  GroupWidget(Group& group, const Seat& seat) : Widget(group, seat) {
    make(L"BUTTON", BS_GROUPBOX | WS_CLIPCHILDREN);
  }

  Wish measure() const override {
    const SIZE title{scale().textWidth(caption()) + scale().px(kRoomBesideTitle), 0};
    return {title, title, Grow::May, Grow::May};
  }

 protected:
  void show() override { setWindowText(window(), caption()); }

  // What its windows say to it is meant for them, and its ground is the form's.
  std::optional<LRESULT> message(UINT message, WPARAM w, LPARAM l) override {
    if (message != WM_ERASEBKGND) return notified(message, w, l);
    RECT area;
    GetClientRect(window(), &area);
    FillRect(reinterpret_cast<HDC>(w), &area, GetSysColorBrush(COLOR_BTNFACE));
    return 1;
  }
};

}  // namespace

std::unique_ptr<Widget> makeWidget(Group& group, const Seat& seat) {
  return std::make_unique<GroupWidget>(group, seat);
}

}  // namespace korvane::win32
