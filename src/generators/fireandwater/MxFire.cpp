#include "generators/fireandwater/MxFire.h"

#include "generators/fireandwater/FireAndWaterCode.h"
#include "generators/kit/StepCurves.h"

namespace korvane {

MxFire::MxFire(Engine& engine)
    : EffectDialog(engine, "MxFire", "Fire", "Blue-Red"),
      Color1("Color1",
             {.toolTip = "body of the flame; click to mix another", .label = "MainColor : "}),
      Color2("Color2", {.toolTip = "sparks; click to mix another", .label = "Secondary Color : "}),
      slIntensity("slIntensity", {.toolTip = "fire height", .label = "Intensity : "}),
      slSpeed("slSpeed", {.toolTip = "slow - fast", .label = "Speed : "}) {
  add({&myName, &Color1, &Color2, &slIntensity, &slSpeed, &OK});
  setLayout(column(
      {fields({myName, Color1, Color2, slIntensity, slSpeed}), space(), row({space(), OK})}));
  const auto burn = [this] { fireTick(engine_, deck()); };
  bindColor(Color1, &Effect::color1, burn);
  bindColor(Color2, &Effect::color2, burn);
  bindSlider(slIntensity, &Effect::amount);
  bindSlider(slSpeed, &Effect::speed, [this] { setStepInterval(deck(), kFastCurve); });
}

void MxFire::fill() {
  myName.setText(effect().name);
  Color1.setBackColor(effect().color1);
  Color2.setBackColor(effect().color2);
  slIntensity.setValue(effect().amount);
  slSpeed.setValue(effect().speed);
}

}  // namespace korvane
