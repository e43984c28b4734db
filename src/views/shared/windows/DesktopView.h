#pragma once

#include <map>
#include <memory>
#include <set>
#include <utility>

#include "platform/Desktop.h"
#include "views/shared/machine/EventGate.h"

namespace korvane {

/// Puts the windows of a desktop on the screen, each made when it is first needed. The desktop and
/// its forms must outlive it. [window thread]
///
/// A view's `Window` is made of a form, the desktop, the gate, and the window above which it stays
/// (nullptr for none). It can open(), hide(), come to the front with activate(), and with
/// setReachable() it hears whether a person can act on it, or another one is open modally.
template <class Window>
class DesktopViewOf {
 public:
  /// All windows but pictures and `alone` ones stay above the window of `main`.
  DesktopViewOf(Desktop& desktop, EventGate& gate, Form& main, std::set<const Form*> alone = {})
      : desktop_(desktop), gate_(gate), main_(main), alone_(std::move(alone)) {
    desktop_.onShow = [this](Form& form) { window(form).open(); };
    desktop_.onHide = [this](Form& form) { hide(form); };
    desktop_.onActivate = [this](Form& form) { activate(form); };
  }
  // Owned windows go before their owner.
  ~DesktopViewOf() {
    desktop_.onShow = desktop_.onHide = desktop_.onActivate = nullptr;
    for (auto& [form, window] : windows_) {
      if (form != &main_) window.reset();
    }
  }
  DesktopViewOf(const DesktopViewOf&) = delete;
  DesktopViewOf& operator=(const DesktopViewOf&) = delete;

  /// The window of a form, or of the one that it stands within.
  Window& window(Form& inner) {
    Form& form = inner.within() != nullptr ? *inner.within() : inner;
    std::unique_ptr<Window>& window = windows_[&form];
    if (!window) window = std::make_unique<Window>(form, desktop_, gate_, ownerOf(form));
    return *window;
  }

 private:
  // A window whose whole surface is a picture stands by itself: it is for another screen.
  Window* ownerOf(const Form& form) {
    const bool alone = &form == &main_ || form.surface != nullptr || alone_.contains(&form);
    return alone ? nullptr : &window(main_);
  }

  // A window that is open modally is the only one that a person can act on.
  void showReach() {
    const Form* modal = desktop_.modal();
    for (auto& [form, window] : windows_) {
      if (window) window->setReachable(modal == nullptr || form == modal);
    }
  }

  // The windows below come back before the modal one goes, or the system would choose another
  // program's window to be the next.
  void hide(Form& form) {
    showReach();
    window(form).hide();
  }

  void activate(Form& form) {
    Window& front = window(form);
    showReach();
    front.activate();
  }

  Desktop& desktop_;
  EventGate& gate_;
  Form& main_;
  std::set<const Form*> alone_;
  std::map<const Form*, std::unique_ptr<Window>> windows_;
};

}  // namespace korvane
