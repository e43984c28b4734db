#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Failure.h"
#include "platform/Form.h"

namespace korvane {

/// All windows of one plug-in, and which of the visible ones is the active one: the one shown or
/// acted on last. Hiding the active window makes the one below it active.
class Desktop {
 public:
  void add(Form& form) { forms_.push_back(&form); }
  const std::vector<Form*>& forms() const { return forms_; }
  /// The window of this name, nullptr if there is none.
  Form* find(const std::string& name) const;
  /// The window of this name. kObjectNotSet, with the name, if there is none.
  Form& named(const std::string& name) const;
  /// The window of a type; nullptr if there is none.
  template <class Window>
  Window* find() const {
    for (Form* form : forms_) {
      if (auto* window = dynamic_cast<Window*>(form)) return window;
    }
    return nullptr;
  }
  /// The same; kObjectNotSet if there is none.
  template <class Window>
  Window& get() const {
    if (auto* window = find<Window>()) return *window;
    throw Failure(kObjectNotSet, "a window that was never made");
  }

  /// Shows the window (load, then activate), or brings it to the front.
  void show(Form& form);
  /// Shows the window modally: only it can be acted on until it is hidden; then `closed` runs.
  void showModal(Form& form, std::function<void()> closed);
  void hide(Form& form);
  /// The close button of the window's frame.
  void close(Form& form);
  /// Makes a visible window the active one; its activate handler runs if it wasn't.
  void activate(Form& form);

  Form* active() const { return stack_.empty() ? nullptr : stack_.back(); }
  /// The window that is open modally on top of all, nullptr for none.
  Form* modal() const;

  /// For the view. A window within another one is never shown or hidden by itself; its activation
  /// is that of the window around it.
  std::function<void(Form&)> onShow, onHide, onActivate;

 private:
  void activated(Form& form) const;
  void shown(Form& form) const;
  void hidden(Form& form) const;

  std::vector<Form*> forms_;
  std::vector<Form*> stack_;  // the visible ones, the active one last
};

}  // namespace korvane
