#include <algorithm>
#include <utility>

#include "platform/Controls.h"
#include "views/win32/kinds/Binder.h"

namespace korvane::win32 {
namespace {

constexpr int kVisibleEntries = 20;
constexpr int kArrow = 30;           // of a drop-down list beyond its text
constexpr int kRoomAboveEntry = 10;  // the same upwards
constexpr SIZE kOpenSize{120, 120};

/// The messages of the two window classes that show lists.
struct Messages {
  UINT clear, add, choose, chosen;
};
constexpr Messages kDropDown{CB_RESETCONTENT, CB_ADDSTRING, CB_SETCURSEL, CB_GETCURSEL};
constexpr Messages kOpen{LB_RESETCONTENT, LB_ADDSTRING, LB_SETCURSEL, LB_GETCURSEL};

class EntriesWidget : public Widget {
 public:
  EntriesWidget(ListBox& list, const Seat& seat, const Messages& messages)
      : Widget(list, seat), list_(list), messages_(messages) {}

 protected:
  int chosen() const { return static_cast<int>(SendMessageW(window(), messages_.chosen, 0, 0)); }

  // A person has chosen the entry that is marked, perhaps the one that was shown before.
  void take() {
    if (const int index = chosen(); index >= 0) act([this, index] { list_.choose(index); });
  }
  // The mark has moved. A list may tell of it twice, or without need.
  void follow() {
    if (chosen() != list_.index()) take();
  }

  void show() override {
    if (items_ != list_.items()) {
      items_ = list_.items();
      fill();
    }
    if (chosen() != list_.index())
      SendMessageW(window(), messages_.choose, static_cast<WPARAM>(list_.index()), 0);
  }

  int widest() const {
    std::wstring all;
    for (const std::string& item : items_) all += toWide(item) + L'\n';
    return scale().textWidth(all);
  }

 private:
  void fill() const {
    SendMessageW(window(), messages_.clear, 0, 0);
    for (const std::string& item : items_)
      SendMessageW(window(), messages_.add, 0, reinterpret_cast<LPARAM>(toWide(item).c_str()));
  }

  ListBox& list_;
  const Messages& messages_;
  std::vector<std::string> items_;
};

class DropDownWidget : public EntriesWidget {
 public:
  DropDownWidget(ListBox& list, const Seat& seat) : EntriesWidget(list, seat, kDropDown) {
    make(L"COMBOBOX", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_HASSTRINGS);
  }

  Wish measure() const override {
    const SIZE size{widest() + scale().px(kArrow), height()};
    return {size, size, Grow::May, Grow::No};
  }
  // The height that it is given holds the open list as well.
  void arrange(const RECT& place) override {
    RECT open = place;
    open.bottom += kVisibleEntries * (scale().lineHeight() + scale().px(2));
    moveWindow(window(), open);
  }

 protected:
  void command(WORD code) override {
    const bool open = SendMessageW(window(), CB_GETDROPPEDSTATE, 0, 0) != 0;
    if (code == CBN_SELENDCANCEL) show();
    if (code == CBN_SELENDOK && open) take();
    if ((code == CBN_SELENDOK || code == CBN_SELCHANGE) && !open) follow();
  }
  // The wheel does nothing on a closed list: it must not change an effect by the way.
  std::optional<LRESULT> message(UINT message, WPARAM w, LPARAM) override {
    const bool open = SendMessageW(window(), CB_GETDROPPEDSTATE, 0, 0) != 0;
    if (message == WM_MOUSEWHEEL && !open) return 0;
    if (message == WM_CHAR && (w == VK_RETURN || w == VK_ESCAPE)) return 0;
    return std::nullopt;
  }

 private:
  int height() const { return scale().lineHeight() + scale().px(kRoomAboveEntry); }
};

class OpenListWidget : public EntriesWidget {
 public:
  OpenListWidget(ListBox& list, const Seat& seat) : EntriesWidget(list, seat, kOpen) {
    make(L"LISTBOX", WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, WS_EX_CLIENTEDGE);
  }

  Wish measure() const override {
    const SIZE size{std::max(widest() + scale().px(kArrow), scale().px(kOpenSize.cx)),
                    scale().px(kOpenSize.cy)};
    return {size, size, Grow::Wants, Grow::Wants};
  }

 protected:
  void command(WORD code) override {
    if (code == LBN_SELCHANGE) follow();
  }
  // A press on the entry that is shown chooses it, too.
  std::optional<LRESULT> message(UINT message, WPARAM w, LPARAM l) override {
    if (message == WM_LBUTTONDOWN) before_ = chosen();
    if (message != WM_LBUTTONUP) return std::nullopt;
    const LRESULT answer = inherited(message, w, l);
    const auto under = static_cast<int>(SendMessageW(window(), LB_ITEMFROMPOINT, 0, l));
    if (std::exchange(before_, -1) == under) take();
    return answer;
  }

 private:
  int before_ = -1;  // the entry that was marked when the button went down
};

}  // namespace

std::unique_ptr<Widget> makeWidget(ListBox& list, const Seat& seat) {
  if (list.style() == ListBox::Style::Open) return std::make_unique<OpenListWidget>(list, seat);
  return std::make_unique<DropDownWidget>(list, seat);
}

}  // namespace korvane::win32
