#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

#include "platform/Controls.h"

namespace korvane {

/// The `richtung` group of a dialog: picture buttons with an arrow each. The chosen one shows its
/// pressed picture; the choice is a swap of pictures, not a toggle state.
class DirectionButtons {
 public:
  /// One button per index, with its picture. 0 is "none".
  explicit DirectionButtons(const std::vector<std::pair<int, Icon>>& buttons);

  /// Presses the button of this index and releases all others.
  void show(int index);
  std::vector<Control*> controls() const;
  PictureButton& button(int index);

  std::function<void(int index)> onClick;

 private:
  struct Entry {
    int index;
    std::unique_ptr<PictureButton> button;
  };
  std::vector<Entry> entries_;
};

/// Buttons "none" and the directions 1 to `last`, with the arrows of their numbers.
std::vector<std::pair<int, Icon>> directionsUpTo(int last);
/// The four straight directions 1, 3, 5, 7.
std::vector<std::pair<int, Icon>> straightDirections();

}  // namespace korvane
