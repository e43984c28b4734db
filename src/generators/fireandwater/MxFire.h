#pragma once

#include "generators/kit/EffectDialog.h"

namespace korvane {

/// Dialog of the Fire effect.
class MxFire : public EffectDialog {
 public:
  explicit MxFire(Engine& engine);

  ColorBox Color1, Color2;
  Slider slIntensity, slSpeed;

 protected:
  void fill() override;
};

}  // namespace korvane
