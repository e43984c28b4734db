#include "views/qt/windows/DesktopView.h"

namespace korvane {

DesktopView::DesktopView(Desktop& desktop, EventGate& gate, Form& main)
    : desktop_(desktop), gate_(gate), main_(main) {
  desktop_.onShow = [this](Form& form) { window(form).open(); };
  desktop_.onHide = [this](Form& form) { window(form).hide(); };
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
QWidget* DesktopView::ownerOf(const Form& form) {
  return &form == &main_ || form.surface != nullptr ? nullptr : &window(main_);
}

FormWindow& DesktopView::window(Form& form) {
  std::unique_ptr<FormWindow>& window = windows_[&form];
  if (!window) window = std::make_unique<FormWindow>(form, desktop_, gate_, ownerOf(form));
  return *window;
}

// A window that the system has made the active one needs no more: asking again would set two
// windows that were shown in a row fighting for it.
void DesktopView::activate(Form& form) {
  FormWindow& front = window(form);
  if (front.isActiveWindow()) return;
  front.raise();
  front.activateWindow();
}

}  // namespace korvane
