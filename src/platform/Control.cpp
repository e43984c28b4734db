#include "platform/Control.h"

#include "platform/Controls.h"

namespace korvane {

const char* kindName(Kind kind) {
  switch (kind) {
    case Kind::Button:
      return "Button";
    case Kind::PictureButton:
      return "PictureButton";
    case Kind::CheckBox:
      return "CheckBox";
    case Kind::ListBox:
      return "ListBox";
    case Kind::ListView:
      return "ListView";
    case Kind::TextBox:
      return "TextBox";
    case Kind::Slider:
      return "Slider";
    case Kind::PictureBox:
      return "PictureBox";
    case Kind::ColorBox:
      return "ColorBox";
    case Kind::Label:
      return "Label";
    case Kind::Group:
      return "Group";
    case Kind::MenuItem:
      return "MenuItem";
  }
  return "";
}

Control::Control(Kind kind, std::string name, Look look)
    : kind_(kind), name_(std::move(name)), look_(std::move(look)) {}

void Control::setCaption(std::string caption) {
  look_.caption = std::move(caption);
  shown();
}

void Control::setToolTip(std::string toolTip) {
  look_.toolTip = std::move(toolTip);
  shown();
}

void Control::setVisible(bool visible) {
  look_.visible = visible;
  shown();
}

void Control::setEnabled(bool enabled) {
  look_.enabled = enabled;
  shown();
}

bool Control::reachable() const {
  if (!look_.visible || !look_.enabled) return false;
  return group == nullptr || group->reachable();
}

}  // namespace korvane
