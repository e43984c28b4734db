#include "views/win32/windows/DesktopView.h"

#include <algorithm>

namespace korvane {
namespace {

void loadControls() {
  const OwnLook look;
  INITCOMMONCONTROLSEX controls{sizeof controls,
                                ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES};
  InitCommonControlsEx(&controls);
}

// A window stands over the middle of its owner, as far as the screen allows.
void centre(HWND window, HWND owner) {
  RECT own;
  RECT around;
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetWindowRect(window, &own);
  GetWindowRect(owner, &around);
  GetMonitorInfoW(MonitorFromWindow(owner, MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& room = monitor.rcWork;
  const auto middle = [](LONG from, LONG to, LONG size, LONG low, LONG high) {
    return std::max(low, std::min((from + to - size) / 2, high - size));
  };
  SetWindowPos(window, nullptr,
               middle(around.left, around.right, own.right - own.left, room.left, room.right),
               middle(around.top, around.bottom, own.bottom - own.top, room.top, room.bottom), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

DesktopView::DesktopView(Desktop& desktop, EventGate& gate, Form& main)
    : desktop_(desktop), gate_(gate), main_(main) {
  loadControls();
  desktop_.onShow = [this](Form& form) { show(form); };
  desktop_.onHide = [this](Form& form) { hide(form); };
  desktop_.onActivate = [this](Form& form) { activate(form); };
}

// Owned windows go before their owner.
DesktopView::~DesktopView() {
  desktop_.onShow = desktop_.onHide = desktop_.onActivate = nullptr;
  for (auto& [form, window] : windows_) {
    if (form != &main_) window.reset();
  }
}

// A window whose whole surface is a picture stands by itself: it is for another screen.
HWND DesktopView::ownerOf(const Form& form) {
  return &form == &main_ || form.surface != nullptr ? nullptr : window(main_).window();
}

FormWindow& DesktopView::window(Form& form) {
  std::unique_ptr<FormWindow>& window = windows_[&form];
  if (!window) {
    const HWND owner = ownerOf(form);
    window = std::make_unique<FormWindow>(form, desktop_, gate_, owner);
    if (owner != nullptr) centre(window->window(), owner);
  }
  return *window;
}

// A window that is open modally is the only one that a person can act on.
void DesktopView::enableWindows() {
  const Form* modal = desktop_.modal();
  for (auto& [form, window] : windows_) {
    if (window) window->setEnabled(modal == nullptr || form == modal);
  }
}

void DesktopView::show(Form& form) { window(form).open(); }

// The windows below come back before the modal one goes, or the system would choose another
// program's window to be the next.
void DesktopView::hide(Form& form) {
  enableWindows();
  window(form).hide();
}

void DesktopView::activate(Form& form) {
  enableWindows();
  FormWindow& front = window(form);
  if (GetActiveWindow() != front.window()) front.activate();
}

}  // namespace korvane
