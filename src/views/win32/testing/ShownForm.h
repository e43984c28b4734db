#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/Controls.h"
#include "platform/HeadlessPlatform.h"
#include "platform/ListView.h"
#include "platform/PictureBox.h"
#include "testing/PlainForm.h"
#include "views/win32/machine/LoopGate.h"
#include "views/win32/windows/DesktopView.h"

namespace korvane::win32 {

/// Handles the messages that have come, as the message loop of a desk does.
inline void pump() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

/// The same until something holds; false if it doesn't within five seconds.
inline bool pumpUntil(const std::function<bool()>& holds) {
  const ULONGLONG end = GetTickCount64() + 5000;
  while (GetTickCount64() < end) {
    pump();
    if (holds()) return true;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
  }
  return false;
}

/// What a person does to a window, posted as the system posts it.
inline void press(HWND window, WPARAM key) {
  PostMessageW(window, WM_KEYDOWN, key, 0);
  PostMessageW(window, WM_KEYUP, key, 0);
  pump();
}
inline void type(HWND window, const wchar_t* text) {
  for (; *text != 0; ++text) PostMessageW(window, WM_CHAR, *text, 0);
  pump();
}
inline void mouse(HWND window, UINT message, int x, int y, WPARAM held = 0) {
  PostMessageW(window, message, held, MAKELPARAM(x, y));
  pump();
}
inline void clickAt(HWND window, int x, int y) {
  mouse(window, WM_LBUTTONDOWN, x, y, MK_LBUTTON);
  mouse(window, WM_LBUTTONUP, x, y);
}

/// Controls of a test's own on the screen.
class ShownForm : public testing::Test {
 protected:
  void TearDown() override { view.reset(); }  // while the controls are still there

  /// A control that lives as long as the test.
  template <class Kind, class... Args>
  Kind& make(Args&&... args) {
    auto control = std::make_unique<Kind>(std::forward<Args>(args)...);
    Kind& made = *control;
    owned.push_back(std::move(control));
    return made;
  }
  FormWindow& show(const std::vector<Control*>& controls) {
    form = std::make_unique<PlainForm>("plain", controls);
    return showForm();
  }
  FormWindow& showForm() {
    desktop.add(*form);
    view = std::make_unique<DesktopView>(desktop, gate, *form);
    desktop.show(*form);
    pump();
    return view->window(*form);
  }
  HWND on(const Control& control) { return view->window(*form).widget(control)->window(); }

  std::vector<std::unique_ptr<Control>> owned;
  HeadlessPlatform platform;
  TimerQueue timers;
  LoopGate gate{platform, timers};
  Desktop desktop;
  std::unique_ptr<PlainForm> form;
  std::unique_ptr<DesktopView> view;
};

}  // namespace korvane::win32
