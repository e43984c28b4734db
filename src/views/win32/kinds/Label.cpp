#include "platform/Controls.h"
#include "views/win32/kinds/Binder.h"

namespace korvane::win32 {
namespace {

constexpr std::size_t kLongText = 80;  // characters; a longer text is broken into lines
constexpr int kWrapWidth = 400;

class LabelWidget : public Widget {
 public:
  LabelWidget(Label& label, const Seat& seat) : Widget(label, seat), label_(label) {
    make(L"STATIC", SS_LEFT | SS_NOTIFY | SS_NOPREFIX);
  }

  Wish measure() const override {
    const std::wstring text = caption();
    const SIZE size = scale().textSize(text, text.size() > kLongText ? scale().px(kWrapWidth) : 0);
    return {size, size, Grow::May, Grow::No};
  }

 protected:
  void show() override { setWindowText(window(), caption()); }
  void command(WORD code) override {
    if (code == STN_CLICKED || code == STN_DBLCLK) act([this] { label_.click(); });
  }

 private:
  Label& label_;
};

}  // namespace

std::unique_ptr<Widget> makeWidget(Label& label, const Seat& seat) {
  return std::make_unique<LabelWidget>(label, seat);
}

}  // namespace korvane::win32
