#pragma once

#include "generators/kit/EffectDialog.h"

namespace korvane {

/// Dialog of the Color effect.
class MxColorForm : public EffectDialog {
 public:
  explicit MxColorForm(Engine& engine);

  ColorBox Color;
  Button Cancel;

 protected:
  void fill() override;

 private:
  void Cancel_Click();
};

}  // namespace korvane
