#include <windowsx.h>

#include <algorithm>

#include "platform/Controls.h"
#include "views/win32/kinds/Binder.h"

namespace korvane::win32 {
namespace {

constexpr int kAcross = 26;  // the slider's extent across its way
constexpr int kLeastWide = 120;
constexpr int kWide = 150;
constexpr int kLeastTall = 100;
constexpr int kTall = 140;
constexpr int kGapOfScale = 6;

// The caption, the slider and its value as a number.
class SliderWidget : public Widget {
 public:
  SliderWidget(Slider& slider, const Seat& seat) : Widget(slider, seat), slider_(slider) {
    const DWORD way = slider.vertical() ? TBS_VERT | TBS_DOWNISLEFT : TBS_HORZ;
    make(TRACKBAR_CLASSW, WS_TABSTOP | TBS_NOTICKS | TBS_BOTH | TBS_FIXEDLENGTH | way);
    caption_ = makeText(caption(), upright() ? SS_CENTER : SS_LEFT);
    number_ = makeText(L"", upright() ? SS_CENTER : SS_RIGHT);
    SendMessageW(window(), TBM_SETRANGEMIN, FALSE, slider.min());
    SendMessageW(window(), TBM_SETRANGEMAX, FALSE, slider.max());
    SendMessageW(window(), TBM_SETPAGESIZE, 0, slider.pageStep());
  }

  Wish measure() const override {
    const int line = scale().lineHeight() + scale().px(2);
    const int text = numberWidth();
    const LONG across = scale().px(kAcross);
    if (upright()) {
      const LONG width = std::max<LONG>({across, text, scale().textWidth(caption())});
      const LONG rest = line * (captionShown() ? 2 : 1);
      return {{width, scale().px(kLeastTall) + rest},
              {width, scale().px(kTall) + rest},
              Grow::No,
              Grow::Wants};
    }
    const LONG rest = text + scale().px(kGapOfScale) + captionWidth();
    const LONG height = std::max<LONG>(across, line);
    return {{scale().px(kLeastWide) + rest, height},
            {scale().px(kWide) + rest, height},
            Grow::Wants,
            Grow::No};
  }

  void arrange(const RECT& place) override { upright() ? placeTall(place) : placeWide(place); }

  void setSizes() override {
    Widget::setSizes();
    for (const HWND text : {caption_, number_})
      SendMessageW(text, WM_SETFONT, reinterpret_cast<WPARAM>(scale().font()), TRUE);
    SendMessageW(window(), TBM_SETTHUMBLENGTH, static_cast<WPARAM>(scale().px(20)), 0);
  }

 protected:
  void show() override {
    setWindowText(caption_, caption());
    setWindowText(number_, std::to_wstring(slider_.value()));
    const int visible = slider_.look().visible ? SW_SHOWNA : SW_HIDE;
    for (const HWND text : {caption_, number_}) {
      ShowWindow(text, visible);
      EnableWindow(text, slider_.look().enabled);
    }
    if (position() != slider_.value()) setPosition(slider_.value());
  }

  void scrolled() override { take(); }

  // A press beside the handle takes the handle there at once; from there it is dragged.
  std::optional<LRESULT> message(UINT message, WPARAM w, LPARAM l) override {
    if (message != WM_LBUTTONDOWN) return std::nullopt;
    const POINT at{GET_X_LPARAM(l), GET_Y_LPARAM(l)};
    if (const RECT before = handle(); PtInRect(&before, at)) return std::nullopt;
    jumpTo(at);
    const RECT now = handle();
    return inherited(message, w,
                     MAKELPARAM((now.left + now.right) / 2, (now.top + now.bottom) / 2));
  }

 private:
  bool upright() const { return slider_.vertical(); }
  bool captionShown() const { return !slider_.look().caption.empty(); }
  // The upper end of an upright slider is its largest value; the window counts from the top.
  int turned(int value) const { return upright() ? slider_.min() + slider_.max() - value : value; }
  int position() const {
    return turned(static_cast<int>(SendMessageW(window(), TBM_GETPOS, 0, 0)));
  }
  void setPosition(int value) const { SendMessageW(window(), TBM_SETPOS, TRUE, turned(value)); }

  void take() {
    const int value = position();
    if (value != slider_.value()) act([this, value] { slider_.setValue(value); });
  }

  RECT handle() const {
    RECT handle;
    SendMessageW(window(), TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&handle));
    return handle;
  }

  void jumpTo(const POINT& at) {
    const RECT size = handle();
    RECT way;  // as if the slider lay flat
    SendMessageW(window(), TBM_GETCHANNELRECT, 0, reinterpret_cast<LPARAM>(&way));
    const int half = (upright() ? size.bottom - size.top : size.right - size.left) / 2;
    const int first = static_cast<int>(way.left) + half;
    const int room = static_cast<int>(way.right) - half - first;
    setPosition(slider_.valueAt(static_cast<int>(upright() ? at.y : at.x) - first, room));
    take();
  }

  int numberWidth() const {
    return std::max(scale().textWidth(std::to_wstring(slider_.min())),
                    scale().textWidth(std::to_wstring(slider_.max())));
  }
  // A slider with negative values has its 0 in the middle, so there is as much room on its left.
  int captionWidth() const {
    const int words = captionShown() ? scale().textWidth(caption()) : 0;
    const int width = slider_.min() < 0 ? std::max(words, numberWidth()) : words;
    return width > 0 ? width + scale().px(kGapOfScale) : 0;
  }

  void placeWide(const RECT& place) {
    const int line = scale().lineHeight();
    const LONG top = (place.top + place.bottom - line) / 2;
    const LONG number = place.right - numberWidth();
    const LONG way = place.left + captionWidth();
    moveWindow(caption_, {place.left, top, way, top + line});
    moveWindow(number_, {number, top, place.right, top + line});
    const LONG across = scale().px(kAcross);
    const LONG upper = (place.top + place.bottom - across) / 2;
    Widget::arrange({way, upper, number - scale().px(kGapOfScale), upper + across});
  }

  void placeTall(const RECT& place) {
    const LONG line = scale().lineHeight() + scale().px(2);
    const LONG first = place.top + (captionShown() ? line : 0);
    const LONG last = place.bottom - line;
    const LONG across = scale().px(kAcross);
    const LONG left = (place.left + place.right - across) / 2;
    moveWindow(caption_, {place.left, place.top, place.right, first});
    moveWindow(number_, {place.left, last, place.right, place.bottom});
    Widget::arrange({left, first, left + across, last});
  }

  Slider& slider_;
  HWND caption_ = nullptr;
  HWND number_ = nullptr;
};

}  // namespace

std::unique_ptr<Widget> makeWidget(Slider& slider, const Seat& seat) {
  return std::make_unique<SliderWidget>(slider, seat);
}

}  // namespace korvane::win32
