#pragma once

#include "generators/image/MxImageList.h"
#include "generators/kit/DirectionButtons.h"
#include "generators/kit/EffectDialog.h"

namespace korvane {

/// Dialog of the Image effect.
class MxImageForm : public EffectDialog {
 public:
  explicit MxImageForm(Engine& engine);
  void OK_Click() override;
  /// The list of pictures is committed with it.
  void commit() override;
  std::vector<DialogWindow> windows() override { return {{imageList, imageList.OK}}; }

  Button BImage;
  CheckBox PStretch, PTile;
  DirectionButtons richtung;
  Slider Slider1, slOffset;
  Button Cancel;
  MxImageList imageList;

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
