#include "platform/Controls.h"

#include <algorithm>
#include <cmath>

#include "platform/Failure.h"
#include "platform/Keys.h"

namespace korvane {

void Button::setBackColor(Color color) {
  backColor_ = color;
  shown();
}

// Grey is the plain face of a button in the classic colours.
bool Button::plain() const {
  if (backColor_ == -1) return true;
  const Rgb parts = colorParts(backColor_);
  return parts[0] == parts[1] && parts[1] == parts[2];
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

void ListBox::require(int index, int least) const {
  if (index < least || index >= static_cast<int>(items_.size()))
    throw Failure(kInvalidPropertyValue, name() + " has no entry " + std::to_string(index));
}

void ListBox::choose(int index) {
  require(index, 0);
  index_ = index;
  shown();
  run(onChosen);
  run(onClick);
}

void ListBox::setIndex(int index) {
  require(index, -1);
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

bool TextBox::takesKey(int key) const {
  return !isPage() && (key == kEnterKey || key == kEscapeKey);
}

void TextBox::key(int key, const std::string& text, const Gate& gate) {
  if (key == kEnterKey && !live()) gate([&] { setText(text); });
  gate([&] { keyPress(key); });
}

int Slider::pageStep() const {
  constexpr int kPages = 10;
  return std::max(1, (max() - min()) / kPages);
}

int Slider::valueAt(int along, int way) const {
  const int length = std::max(1, way);
  const double share = static_cast<double>(std::clamp(along, 0, length)) / length;
  const int offset = static_cast<int>(std::lround(share * (max() - min())));
  return vertical() ? max() - offset : min() + offset;
}

void Slider::setValue(int value) {
  const int position = std::clamp(value, range_.min, range_.max);
  if (position == value_) return;
  value_ = position;
  shown();
  run(onChange);
}

void MenuItem::setKey(std::string key) {
  if (key == key_) return;
  key_ = std::move(key);
  shown();
}

void MenuItem::setLit(bool lit) {
  if (lit == lit_) return;
  lit_ = lit;
  shown();
}

void ColorBox::setBackColor(Color color) {
  backColor_ = color;
  shown();
}

}  // namespace korvane
