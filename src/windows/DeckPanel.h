#pragma once

#include <vector>

#include "platform/Controls.h"
#include "platform/Layout.h"
#include "state/Engine.h"

namespace korvane {

/// One deck's column of the main window: the controls around the deck's list and preview.
class DeckPanel {
 public:
  DeckPanel(Engine& engine, Deck& deck);

  /// All of the column, in tab order.
  std::vector<Control*> controls();
  Layout layout();

  Group frame;
  PictureButton add, remove, up, down;
  Button edit, clear;
  PictureButton copyMem, pasteMem;

 private:
  void bind();

  Engine& engine_;
  Deck& deck_;
};

}  // namespace korvane
