#include "views/win32/windows/FailureBox.h"

namespace korvane::win32 {

FailureBox::Content::Content(const std::string& text)
    : Form("Failure", "Korvane"),
      what("what", {.caption = text}),
      times("times", {.caption = " "}),
      OK("OK", {.caption = "OK"}) {
  add({&what, &times, &OK});
  setLayout(column({what, times, space(), row({space(), OK, space()})}));
}

FailureBox::FailureBox(Platform& platform, const std::string& text)
    : text_(text), content_(text), gate_(platform, noTimers_), view_(desktop_, gate_, content_) {
  desktop_.add(content_);
  content_.OK.onClick = [this] { desktop_.hide(content_); };
  desktop_.show(content_);
}

bool FailureBox::repeated(const std::string& text) {
  if (text != text_ || !content_.visible()) return false;
  content_.times.setCaption(std::to_string(++repeats_) + " times so far");
  return true;
}

}  // namespace korvane::win32
