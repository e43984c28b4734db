#pragma once

#include "generators/kit/DirectionButtons.h"
#include "generators/kit/EffectDialog.h"

namespace korvane {

/// Dialog of the Fluid effect.
class MxWater : public EffectDialog {
 public:
  explicit MxWater(Engine& engine);

  ColorBox Color1, Color2;
  Slider slIntensity, slSpeed;
  Label directionLabel;
  DirectionButtons richtung;

 protected:
  void fill() override;

 private:
  void richtung_Click(int index);
};

}  // namespace korvane
