#pragma once

#include "generators/kit/DirectionButtons.h"
#include "generators/kit/EffectDialog.h"

namespace korvane {

/// Dialog of the Ticker effect.
class MxTickerForm : public EffectDialog {
 public:
  explicit MxTickerForm(Engine& engine);

  TextBox myTicker;
  ColorBox Color1, Color2;
  ListBox myFont;
  Slider slSpeed, slOffset;
  Label directionLabel;
  DirectionButtons richtung;
  CheckBox Beat, Backward, Mirror, Letter;

 protected:
  void fill() override;

 private:
  void declareLayout();
  void bindEvents();
  void bindSwitch(CheckBox& box, std::int16_t Effect::*field);
  void fillLetter();
  void myTicker_Change();
  void slOffset_Change();
  void richtung_Click(int index);
  void Beat_Click();
  void Letter_Click();
  void build();
};

}  // namespace korvane
