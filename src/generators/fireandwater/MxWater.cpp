#include "generators/fireandwater/MxWater.h"

#include "generators/fireandwater/FireAndWaterCode.h"
#include "generators/kit/CellWise.h"
#include "generators/kit/StepCurves.h"

namespace korvane {

MxWater::MxWater(Engine& engine)
    : EffectDialog(engine, "MxWater", "Water", "Blue-Red"),
      Color1("Color1", {.toolTip = "the stream at its darkest; click to mix another",
                        .label = "MainColor : "}),
      Color2("Color2",
             {.toolTip = "added at random; click to mix another", .label = "Secondary Color : "}),
      slIntensity("slIntensity", {.toolTip = "fire height", .label = "Roughness : "}),
      slSpeed("slSpeed", {.toolTip = "slow - fast", .label = "Speed : "}),
      directionLabel("directionLabel",
                     {.caption = "Direction : ", .toolTip = "where the stream flows"}),
      richtung(straightDirections()) {
  add({&myName, &Color1, &Color2, &slIntensity, &slSpeed, &directionLabel});
  add(richtung.controls());
  add({&OK});
  setLayout(column({fields({myName, Color1, Color2, slIntensity, slSpeed,
                            row({directionLabel, row(richtung.controls()), space()})}),
                    space(), row({space(), OK})}));
  bindColor(Color1, &Effect::color1, {});
  bindColor(Color2, &Effect::color2, {});
  bindSlider(slIntensity, &Effect::amount);
  bindSlider(slSpeed, &Effect::speed, [this] { setStepInterval(deck(), kFastCurve); });
  richtung.onClick = [this](int index) { richtung_Click(index); };
}

void MxWater::fill() {
  myName.setText(effect().name);
  Color1.setBackColor(effect().color1);
  Color2.setBackColor(effect().color2);
  slIntensity.setValue(effect().amount);
  slSpeed.setValue(effect().speed);
  richtung.show(effect().direction);
}

// The stream itself reads neither `step` nor `steps`; they are set all the same.
void MxWater::richtung_Click(int index) {
  richtung.show(index);
  effect().direction = static_cast<std::int16_t>(index);
  const bool vertical = index == kUp || index == kDown;
  deck().steps = vertical ? engine_.v.matrixRows : engine_.v.matrixCols;
  deck().step = 0;
  fluidTick(engine_, deck());
}

}  // namespace korvane
