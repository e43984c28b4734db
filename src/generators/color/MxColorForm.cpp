#include "generators/color/MxColorForm.h"

#include "generators/color/ColorCode.h"

namespace korvane {

MxColorForm::MxColorForm(Engine& engine)
    : EffectDialog(engine, "MxColorForm", "Color", "Blue"),
      Color("Color", {.toolTip = "the colour; click to mix another", .label = "Color : "}),
      Cancel("Cancel", {.caption = "Cancel", .toolTip = "put the effect back as it was"}) {
  add({&myName, &Color, &OK, &Cancel});
  setLayout(column({fields({myName, Color}), space(), row({space(), OK, Cancel})}));
  bindColor(Color, &Effect::color1, [this] { renderColor(engine_, deck()); });
  Cancel.onClick = [this] { Cancel_Click(); };
}

void MxColorForm::fill() {
  myName.setText(effect().name);
  Color.setBackColor(effect().color1);
}

// The backup of deck A is never filled: Cancel there empties the name and turns the effect black
// (docs/kept.md, deck-cancel).
void MxColorForm::Cancel_Click() {
  const Effect& backup = deck().efxBackup;
  myName.setText(backup.name);
  Color.setBackColor(backup.color1);
  effect().color1 = backup.color1;
  renderColor(engine_, deck());
  engine_.desktop.hide(*this);
}

}  // namespace korvane
