#pragma once

#include <array>
#include <functional>

#include "platform/Controls.h"
#include "platform/Form.h"
#include "platform/PictureBox.h"
#include "state/Engine.h"

namespace korvane {

/// The one colour picker, always modal: three sliders, each with a strip that shows the colour at
/// every position of that slider, given the other two.
class MxColorMixer : public Form {
 public:
  explicit MxColorMixer(Engine& engine);

  /// Redraws the strips, their markers and the result from the sliders.
  void updateColorPictures();
  /// Opens the mixer with its sliders at a colour; `picked` gets the result after it has closed.
  /// After Cancel the result is `pickedColorBefore`, which is the caller's to set.
  void open(Color start, std::function<void(Color)> picked);

  Slider Sred, Sgreen, Sblue;
  PictureBox Pred, Pgreen, Pblue;
  ColorBox Presult;
  Button Bok, Bcancel;

 private:
  /// One colour component: its slider and its strip.
  struct Component {
    Slider* slider;
    PictureBox* strip;
    std::int32_t mask;
  };

  Color mixed(const Component& own, int value) const;
  void drawStrip(const Component& component, Color marker);
  void pickFromStrip(const Component& component);

  Engine& engine_;
  std::array<Component, 3> components_;
  int mouseX_ = 0;  // where the mouse went down on a strip
  int mouseY_ = 0;
};

/// Opens the mixer at `before`, which is also what Cancel answers.
void pickColor(Engine& engine, Color before, std::function<void(Color)> picked);

}  // namespace korvane
