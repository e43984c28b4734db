#include "generators/kit/DirectionButtons.h"

#include <array>
#include <string>

#include "platform/Failure.h"

namespace korvane {
namespace {

constexpr std::array<const char*, 13> kDirectionNames = {
    "no direction", "up",    "up-left",  "left",           "down-left",       "down",
    "down-right",   "right", "up-right", "columns inward", "columns outward", "rows inward",
    "rows outward"};

const char* toolTip(int index, Icon icon) {
  if (icon == Icon::RingsInward) return "rings inward";
  if (icon == Icon::RingsOutward) return "rings outward";
  return kDirectionNames.at(static_cast<std::size_t>(index));
}

}  // namespace

DirectionButtons::DirectionButtons(const std::vector<std::pair<int, Icon>>& buttons) {
  for (const auto& [index, icon] : buttons) {
    Look look;
    look.toolTip = toolTip(index, icon);
    auto button =
        std::make_unique<PictureButton>("richtung(" + std::to_string(index) + ")", icon, look);
    button->onClick = [this, index = index] {
      if (onClick) onClick(index);
    };
    entries_.push_back({index, std::move(button)});
  }
}

void DirectionButtons::show(int index) {
  for (const Entry& entry : entries_) entry.button->setPressed(entry.index == index);
}

std::vector<Control*> DirectionButtons::controls() const {
  std::vector<Control*> all;
  for (const Entry& entry : entries_) all.push_back(entry.button.get());
  return all;
}

PictureButton& DirectionButtons::button(int index) {
  for (const Entry& entry : entries_) {
    if (entry.index == index) return *entry.button;
  }
  throw Failure(kSubscript, "richtung has no button " + std::to_string(index));
}

std::vector<std::pair<int, Icon>> directionsUpTo(int last) {
  std::vector<std::pair<int, Icon>> all;
  for (int index = 0; index <= last; ++index) all.emplace_back(index, arrowIcon(index));
  return all;
}

std::vector<std::pair<int, Icon>> straightDirections() {
  std::vector<std::pair<int, Icon>> all;
  for (const int index : {1, 3, 5, 7}) all.emplace_back(index, arrowIcon(index));
  return all;
}

}  // namespace korvane
