#pragma once

#include "generators/kit/DirectionButtons.h"
#include "generators/kit/EffectDialog.h"

namespace korvane {

/// Dialog of the Gradient effect.
class MxGradientForm : public EffectDialog {
 public:
  explicit MxGradientForm(Engine& engine);

  ColorBox Color1, Color2;
  DirectionButtons richtung;
  Button Cancel;

 protected:
  void fill() override;

 private:
  void richtung_Click(int index);
  void Cancel_Click();
};

}  // namespace korvane
