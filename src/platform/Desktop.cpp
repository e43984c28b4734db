#include "platform/Desktop.h"

#include <algorithm>
#include <utility>

#include "platform/Failure.h"

namespace korvane {

Form* Desktop::find(const std::string& name) const {
  const auto found = std::find_if(forms_.begin(), forms_.end(),
                                  [&](const Form* form) { return form->name() == name; });
  return found == forms_.end() ? nullptr : *found;
}

Form& Desktop::named(const std::string& name) const {
  Form* form = find(name);
  if (form == nullptr) throw Failure(kObjectNotSet, "there is no window " + name);
  return *form;
}

void Desktop::show(Form& form) {
  form.load();
  const bool wasVisible = form.visible_;
  form.visible_ = true;
  if (!wasVisible) shown(form);
  activate(form);
}

void Desktop::showModal(Form& form, std::function<void()> closed) {
  form.load();  // a window that can't load doesn't stay half modal
  form.modal_ = true;
  form.afterModal_ = std::move(closed);
  show(form);
}

void Desktop::hide(Form& form) {
  if (!form.visible_) return;
  const bool wasActive = active() == &form;
  form.visible_ = false;
  form.modal_ = false;
  std::erase(stack_, &form);
  hidden(form);
  const std::function<void()> closed = std::exchange(form.afterModal_, nullptr);
  try {
    if (wasActive && active() != nullptr) activated(*active());
  } catch (...) {
    if (closed) closed();  // who waits for the window goes on, even if the one below fails
    throw;
  }
  if (closed) closed();
}

void Desktop::shown(Form& form) const {
  if (form.pane_ != nullptr) return form.pane_->setVisible(true);
  if (onShow) onShow(form);
}

void Desktop::hidden(Form& form) const {
  if (form.pane_ != nullptr) return form.pane_->setVisible(false);
  if (onHide) onHide(form);
}

void Desktop::activated(Form& form) const {
  if (onActivate) onActivate(form.within() != nullptr ? *form.within() : form);
  if (form.onActivate) form.onActivate();
}

void Desktop::close(Form& form) {
  if (form.mayClose && !form.mayClose()) return;
  if (form.onClose) form.onClose();
  hide(form);
}

void Desktop::activate(Form& form) {
  if (!form.visible_ || active() == &form) return;
  std::erase(stack_, &form);
  stack_.push_back(&form);
  activated(form);
}

Form* Desktop::modal() const {
  const auto top =
      std::find_if(stack_.rbegin(), stack_.rend(), [](const Form* form) { return form->modal_; });
  return top == stack_.rend() ? nullptr : *top;
}

}  // namespace korvane
