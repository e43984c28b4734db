#pragma once

#include "generators/kit/ColorListDialog.h"
#include "generators/kit/DirectionButtons.h"

namespace korvane {

/// Dialog of the Color Scroll effect.
class MxColorScroll : public ColorListDialog {
 public:
  explicit MxColorScroll(Engine& engine);

  /// Copies the list to the record, rebuilds the strip and lets the deck go on with it.
  void updateColorList2();
  void OK_Click() override;

  Label directionLabel;
  DirectionButtons richtung;
  CheckBox fadeMode;

 protected:
  void fill() override;
  void takeList() override { updateColorList2(); }

 private:
  void richtung_Click(int index);
  void fadeMode_Click();
};

}  // namespace korvane
