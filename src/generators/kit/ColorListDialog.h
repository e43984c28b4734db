#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "generators/Effects.h"
#include "generators/kit/EffectDialog.h"
#include "generators/kit/NumberCell.h"
#include "platform/ListView.h"

namespace korvane {

/// What the dialogs of Color Change and Color Scroll share: the list of colours with a number each,
/// its buttons, the speed and the switch to the host's beat. Every change goes to the record and
/// the running deck at once; there is no Cancel.
class ColorListDialog : public EffectDialog {
 public:
  ListView ColorList;
  PictureButton addColor, removeColor, upColor, downColor;
  Slider slSpeed;
  CheckBox beatControl;

 protected:
  /// The column of numbers beside the colours.
  struct NumberColumn {
    std::string title;
    std::string firstText;  ///< of the cell of an added colour
    NormalForm normal;
  };
  /// The texts of the effect's own window.
  struct Texts {
    std::string name, caption, defaultName, speedRange;
  };

  ColorListDialog(Engine& engine, const Texts& texts, NumberColumn numbers);

  /// The list has changed: copies it to the record and goes on with it.
  virtual void takeList() = 0;

  /// Fills the list from the record: its colours with these numbers.
  template <class Number>
  void fillList(const std::vector<Number>& numbers) {
    ColorList.clear();
    for (std::size_t i = 0; i < colorCount(); ++i) {
      addEntry(effect().colors.at(i), static_cast<double>(numbers.at(i)));
    }
  }
  /// Copies the entries to the record: their colours, and their numbers to this array, one slot of
  /// 0 behind them. kTypeMismatch if the text of an entry is no number.
  template <class Number>
  void takeEntries(std::vector<Number> Effect::*numbers, Number (*convert)(double)) {
    takeColors();
    (effect().*numbers).assign(colorCount() + 1, 0);
    fitLists(effect());
    for (std::size_t i = 0; i < colorCount(); ++i)
      (effect().*numbers)[i] = convert(numberOf(static_cast<int>(i)));
  }
  std::size_t colorCount() { return static_cast<std::size_t>(effect().colorCount); }
  /// The list, its buttons beside it.
  Layout listLayout();

  /// Makes the effect follow the beat, or its timer again.
  void beatControl_Click();

 private:
  void takeColors();
  double numberOf(int entry) const;
  void addEntry(Color color, double number);
  void ColorList_Click(int entry, int col);
  void addColor_Click();
  void removeColor_Click();
  void moveColor(int by);

  NumberColumn numbers_;
};

}  // namespace korvane
