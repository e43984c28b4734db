#include "platform/Form.h"

#include "platform/Controls.h"
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

Control* Form::find(const std::string& name) const {
  for (Control* control : controls_) {
    if (control->name() == name) return control;
  }
  return nullptr;
}

bool Form::takesKey(int key) const {
  return onKeyPress && (key == kEnterKey || key == kEscapeKey || key == kSpaceKey);
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

void Form::enterGroups(const Layout& layout, Group* around) {
  if (layout.control != nullptr) layout.control->group = around;
  Group* inside = layout.kind == Layout::Kind::Boxed ? static_cast<Group*>(layout.control) : around;
  for (const Layout& child : layout.children) enterGroups(child, inside);
}

}  // namespace korvane
