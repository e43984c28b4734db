#include "generators/color/MxGradientForm.h"

#include "generators/color/ColorCode.h"

namespace korvane {
namespace {

constexpr int kLastStraightDirection = 8;
constexpr int kShortestSideForRings = 3;

std::vector<std::pair<int, Icon>> directions() {
  std::vector<std::pair<int, Icon>> all = directionsUpTo(kLastStraightDirection);
  all.emplace_back(9, Icon::RingsInward);
  all.emplace_back(10, Icon::RingsOutward);
  return all;
}

}  // namespace

MxGradientForm::MxGradientForm(Engine& engine)
    : EffectDialog(engine, "MxGradientForm", "Gradient", "Blue-Red"),
      Color1("Color1", {.toolTip = "colour at which the arrow starts; click to mix another",
                        .label = "Color1 : "}),
      Color2("Color2", {.toolTip = "colour at which the arrow ends; click to mix another",
                        .label = "Color2 : "}),
      richtung(directions()),
      Cancel("Cancel", {.caption = "Cancel", .toolTip = "put the effect back as it was"}) {
  add({&myName, &Color1, &Color2});
  add(richtung.controls());
  add({&OK, &Cancel});
  setLayout(column({fields({myName, Color1, Color2}), row(richtung.controls()), space(),
                    row({space(), OK, Cancel})}));
  const auto render = [this] { renderGradient(engine_, deck()); };
  bindColor(Color1, &Effect::color1, render);
  bindColor(Color2, &Effect::color2, render);
  richtung.onClick = [this](int index) { richtung_Click(index); };
  Cancel.onClick = [this] { Cancel_Click(); };
}

void MxGradientForm::fill() {
  myName.setText(effect().name);
  Color1.setBackColor(effect().color1);
  Color2.setBackColor(effect().color2);
  richtung.show(effect().direction);
}

void MxGradientForm::richtung_Click(int index) {
  if (index <= 0) return;  // button 0 exists and selects nothing
  const Variablen& v = engine_.v;
  const bool tooShort =
      v.matrixCols < kShortestSideForRings || v.matrixRows < kShortestSideForRings;
  if (index > kLastStraightDirection && tooShort) return;
  richtung.show(index);
  effect().direction = static_cast<std::int16_t>(index);
  renderGradient(engine_, deck());
}

// As in the Color dialog, the backup of deck A is never filled (docs/kept.md, deck-cancel).
void MxGradientForm::Cancel_Click() {
  const Effect& backup = deck().efxBackup;
  myName.setText(backup.name);
  Color1.setBackColor(backup.color1);
  Color2.setBackColor(backup.color2);
  effect().color1 = backup.color1;
  effect().color2 = backup.color2;
  effect().direction = backup.direction;
  renderGradient(engine_, deck());
  engine_.desktop.hide(*this);
}

}  // namespace korvane
