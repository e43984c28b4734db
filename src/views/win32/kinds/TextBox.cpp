#include <algorithm>
#include <utility>

#include "platform/Controls.h"
#include "views/win32/kinds/Binder.h"

namespace korvane::win32 {
namespace {

constexpr int kLineWidth = 120;
constexpr int kLeastLine = 56;
constexpr int kRoomAboveText = 7;
constexpr int kLeastPage = 120;
constexpr int kPageFrame = 36;  // of a page beyond its text: margins and scroll bar
constexpr int kLongestText = 0x7FFFFFFE;

std::wstring windowLines(std::wstring text) {
  for (std::size_t at = 0; (at = text.find(L'\n', at)) != std::wstring::npos; at += 2)
    text.insert(at, 1, L'\r');
  return text;
}

std::wstring plainLines(std::wstring text) {
  std::erase(text, L'\r');
  return text;
}

class TextWidget : public Widget {
 public:
  TextWidget(TextBox& box, const Seat& seat) : Widget(box, seat), box_(box) {
    const DWORD lines = box.isPage() ? ES_MULTILINE | WS_VSCROLL : ES_AUTOHSCROLL;
    make(L"EDIT", WS_TABSTOP | lines | (box.style().readOnly ? ES_READONLY : 0), WS_EX_CLIENTEDGE);
    SendMessageW(window(), EM_SETLIMITTEXT, kLongestText, 0);
  }

  Wish measure() const override { return box_.isPage() ? pageWish() : lineWish(); }

 protected:
  void show() override {
    if (shown() == toWide(box_.text())) return;
    showing_ = true;
    SetWindowTextW(window(), windowLines(toWide(box_.text())).c_str());
    if (GetFocus() == window()) SendMessageW(window(), EM_SETSEL, kLongestText, kLongestText);
    showing_ = false;
  }

  void command(WORD code) override {
    if (showing_) return;
    if (code == (box_.live() ? EN_CHANGE : EN_KILLFOCUS)) take();
  }

  std::optional<LRESULT> message(UINT message, WPARAM w, LPARAM) override {
    const auto key = static_cast<int>(w);
    if (!box_.takesKey(key) || (message != WM_KEYDOWN && message != WM_CHAR)) return std::nullopt;
    if (message == WM_KEYDOWN)
      box_.key(key, toUtf8(shown()), [this](const std::function<void()>& each) { act(each); });
    return 0;
  }

 private:
  std::wstring shown() const { return plainLines(windowText(window())); }

  void take() {
    const std::string typed = toUtf8(shown());
    if (typed != box_.text()) act([this, typed] { box_.setText(typed); });
  }

  Wish lineWish() const {
    const int height = scale().lineHeight() + scale().px(kRoomAboveText);
    return {
        {scale().px(kLeastLine), height}, {scale().px(kLineWidth), height}, Grow::Wants, Grow::No};
  }
  Wish pageWish() const {
    const int words = scale().textWidth(toWide(box_.text())) + scale().px(kPageFrame);
    const int line = scale().lineHeight();
    const SIZE size{std::max(words, scale().px(kLeastPage)),
                    box_.style().lines * line + 2 * line / 3};
    return {size, size, Grow::Wants, Grow::Wants};
  }

  TextBox& box_;
  bool showing_ = false;
};

}  // namespace

std::unique_ptr<Widget> makeWidget(TextBox& box, const Seat& seat) {
  return std::make_unique<TextWidget>(box, seat);
}

}  // namespace korvane::win32
