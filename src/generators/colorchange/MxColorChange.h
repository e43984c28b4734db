#pragma once

#include "generators/kit/ColorListDialog.h"

namespace korvane {

/// Dialog of the Color Change effect.
class MxColorChange : public ColorListDialog {
 public:
  explicit MxColorChange(Engine& engine);

  /// Copies the list to the record and lets the deck go on with it.
  void updateColorList();
  void OK_Click() override;

  Slider slFade;
  ListBox cbFadeMode;

 protected:
  void fill() override;
  void takeList() override { updateColorList(); }

 private:
  void setStepInterval();
  void cbFadeMode_Click();
  void beatControl_Changed();
  void speedChanged();
  void takeFadeMode();
  void setHoldInterval(int speed);
  Color currentColor();
};

}  // namespace korvane
