#include "platform/Form.h"

#include <algorithm>
#include <iterator>

#include "platform/Keys.h"

namespace korvane {
void Form::setCaption(std::string caption) {
  caption_ = std::move(caption);
  shown();
}

void Form::setSize(int width, int height) {
  width_ = width;
  height_ = height;
  shown();
}

void Form::moveTo(const WindowPlace& place) {
  place_ = wanted_ = place;
  shown();
}

Control* Form::find(const std::string& name) const {
  for (Control* control : controls_) {
    if (control->name() == name) return control;
  }
  return nullptr;
}

bool Form::takesKey(int key) const {
  if (onKeyPress) return key == kEnterKey || key == kEscapeKey || key == kSpaceKey;
  return (key == kEnterKey && onEnter) || (key == kEscapeKey && onEscape);
}

void Form::load() {
  if (loaded_) return;
  loaded_ = true;
  try {
    if (onLoad) onLoad();
  } catch (...) {
    loaded_ = false;
    throw;
  }
}

void Form::add(const std::vector<Control*>& controls) {
  for (Control* control : controls) {
    control->form = this;
    controls_.push_back(control);
  }
}

void Form::setLayout(Layout layout) {
  layout_ = std::move(layout);
  enterGroups(layout_, nullptr);
}

void Form::extend(const std::vector<Control*>& controls, Layout part) {
  add(controls);
  Layout whole = std::move(layout_);
  whole.children.insert(std::prev(whole.children.end()), std::move(part));
  setLayout(std::move(whole));
}

void Form::key(int key) {
  if (onKeyPress) return onKeyPress(key);
  if (visible_ && takesKey(key)) key == kEnterKey ? onEnter() : onEscape();
}

// It may end the taking of keys.
void Form::anyKey(const std::string& name) {
  const auto take = onAnyKey;
  if (take) take(name);
}

void Form::hold(Form& inner, Group& pane) {
  held_ = &inner;
  inner.within_ = this;
  inner.pane_ = &pane;
  pane.setVisible(inner.visible_);
}

std::vector<Control*> Form::shownControls() const {
  std::vector<Control*> all = controls_;
  if (held_ == nullptr) return all;
  const auto pane = std::find(all.begin(), all.end(), held_->pane_);
  all.insert(std::next(pane), held_->controls_.begin(), held_->controls_.end());
  return all;
}

void Form::enterGroups(const Layout& layout, Group* around) {
  if (layout.control != nullptr) layout.control->group = around;
  Group* inside = layout.kind == Layout::Kind::Boxed ? static_cast<Group*>(layout.control) : around;
  for (const Layout& child : layout.children) enterGroups(child, inside);
}

}  // namespace korvane
