#pragma once

#include <array>

#include "platform/Controls.h"
#include "platform/Form.h"
#include "state/Engine.h"

namespace korvane {

/// The modal dialog that gives one cell its channels. A channel code is (universe - 1) x 512 +
/// channel, universe 1 - 16, channel 1 - 512.
class MatrixConfDetail : public Form {
 public:
  explicit MatrixConfDetail(Engine& engine);

  /// The two lists of a component: the channel, from 1, and the universe.
  struct Choice {
    ListBox* channel;
    ListBox* universe;
  };
  /// Red, green, blue.
  std::array<Choice, 3> choices() { return {{{&R, &UR}, {&G, &UG}, {&B, &UB}}}; }

  Label red, green, blue;
  ListBox R, G, B;
  ListBox UR, UG, UB;
  Button setConfig, Cancel;

 private:
  void setConfig_Click();

  Engine& engine_;
};

}  // namespace korvane
