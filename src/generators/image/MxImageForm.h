#pragma once

#include "generators/kit/DirectionButtons.h"
#include "generators/kit/EffectDialog.h"

namespace korvane {

/// Dialog of the Image effect.
class MxImageForm : public EffectDialog {
 public:
  explicit MxImageForm(Engine& engine);
  void OK_Click() override;

  Button BImage;
  CheckBox PStretch, PTile;
  DirectionButtons richtung;
  Slider Slider1, slOffset;
  Button Cancel;

 protected:
  void fill() override;

 private:
  void PStretch_Click();
  void PTile_Click();
  void richtung_Click(int index);
  void Slider1_Change();
  void slOffset_Change();
  void Cancel_Click();
  /// Starts the travel anew.
  void restart();
};

}  // namespace korvane
