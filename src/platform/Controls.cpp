#include "platform/Controls.h"

#include <algorithm>

#include "platform/Failure.h"

namespace korvane {

void Button::setBackColor(Color color) {
  backColor_ = color;
  shown();
}

void PictureButton::setPressed(bool pressed) {
  pressed_ = pressed;
  shown();
}

void CheckBox::setValue(int value) {
  const int state = value != 0 ? 1 : 0;
  if (state == value_) return;
  value_ = state;
  shown();
  run(onClick);
}

void ListBox::setItems(std::vector<std::string> items) {
  items_ = std::move(items);
  index_ = -1;
  shown();
}

std::string ListBox::text() const {
  return index_ < 0 ? std::string() : items_[static_cast<std::size_t>(index_)];
}

void ListBox::setIndex(int index) {
  if (index < -1 || index >= static_cast<int>(items_.size())) {
    throw Failure(kInvalidPropertyValue, name() + " has no entry " + std::to_string(index));
  }
  if (index == index_) return;
  index_ = index;
  shown();
  run(onClick);
}

void ListBox::setEntry(int entry) {
  if (entry < 1)
    throw Failure(kInvalidPropertyValue, name() + " has no entry number " + std::to_string(entry));
  setIndex(entry - 1);
}

void TextBox::setText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  shown();
  run(onChange);
}

void Slider::setValue(int value) {
  const int position = std::clamp(value, range_.min, range_.max);
  if (position == value_) return;
  value_ = position;
  shown();
  run(onChange);
}

void ColorBox::setBackColor(Color color) {
  backColor_ = color;
  shown();
}

}  // namespace korvane
