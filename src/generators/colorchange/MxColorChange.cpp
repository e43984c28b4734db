#include "generators/colorchange/MxColorChange.h"

#include <algorithm>

#include "generators/color/ColorCode.h"
#include "generators/colorchange/ColorChangeCode.h"
#include "generators/kit/StepCurves.h"
#include "platform/Numbers.h"

namespace korvane {

MxColorChange::MxColorChange(Engine& engine)
    : ColorListDialog(engine, {"MxColorChange", "Color Change", "Blue", "+/- 200%"},
                      {"Time(s)", "3,00", normalTime}),
      slFade("slFade", {.caption = "10-1 sec",
                        .toolTip = "how fast one colour changes to the next",
                        .label = "Fade Speed : "}),
      cbFadeMode("cbFadeMode",
                 {.toolTip = "how one colour changes to the next", .label = "Fade Effect : "}) {
  cbFadeMode.setItems({kColorFadeNames.begin(), kColorFadeNames.end()});
  add({&myName, &ColorList, &addColor, &removeColor, &upColor, &downColor, &slSpeed, &slFade,
       &cbFadeMode, &beatControl, &OK});
  setLayout(column({fields({myName}), listLayout(),
                    fields({slSpeed, slFade, cbFadeMode, beatControl}), row({space(), OK})}));
  bindSlider(slSpeed, &Effect::speed, [this] { speedChanged(); });
  bindSlider(slFade, &Effect::amount);
  cbFadeMode.onClick = [this] { cbFadeMode_Click(); };
  beatControl.onClick = [this] { beatControl_Changed(); };
  onActivate = [this] { ColorList.unselectAll(); };
  onClick = [this] { ColorList.unselectAll(); };
}

// The beat comes before the fade mode: a box still checked from the effect before would force the
// mode to "None".
void MxColorChange::fill() {
  // Only the left deck makes room for all times (docs/kept.md, deck-change-room).
  if (!deck().isB()) {
    effect().itemTimes.resize(colorCount() + 1);
    fitLists(effect());
  }
  myName.setText(effect().name);
  fillList(effect().itemTimes);
  slSpeed.setValue(effect().speed);
  slFade.setValue(effect().amount);
  beatControl.setValue(effect().beatControl);
  cbFadeMode.setIndex(effect().fadeMode);
}

Color MxColorChange::currentColor() {
  return effect().colors.at(static_cast<std::size_t>(deck().colorIndex));
}

void MxColorChange::setHoldInterval(int speed) {
  const double time = effect().itemTimes.at(static_cast<std::size_t>(deck().colorIndex));
  deck().timer1.setInterval(colorHoldInterval(time, toInt16(speed)));
}

void MxColorChange::setStepInterval() { setHoldInterval(effect().speed); }

// The timer starts even if the effect follows the beat (docs/kept.md, change-list-beat).
void MxColorChange::updateColorList() {
  takeEntries<double>(&Effect::itemTimes, [](double seconds) { return seconds; });
  // The colour that the deck shows may be the one that was removed.
  const int last = std::max(effect().colorCount - 1, 0);
  deck().colorIndex = toInt16(std::clamp<int>(deck().colorIndex, 0, last));
  if (effect().colorCount < 2) return;
  effect().color1 = currentColor();
  setHoldInterval(slSpeed.value());
  deck().timer1.enable();
}

// The slider also moves as the dialog of a Color Scroll opens, which holds no colour, and for a new
// effect, which has none yet.
void MxColorChange::speedChanged() {
  const int current = deck().colorIndex;
  const bool holds = effect().type == kColorChange && current >= 0 && current < effect().colorCount;
  if (holds) setStepInterval();
}

// A running transition keeps its mode; the new one waits for its end.
void MxColorChange::takeFadeMode() {
  deck().savedFadeMode = toInt16(cbFadeMode.index());
  if (!deck().transitionRunning) effect().fadeMode = deck().savedFadeMode;
}

// A colour change on the beat always cuts.
void MxColorChange::cbFadeMode_Click() {
  if (beatControl.checked()) {
    cbFadeMode.setIndex(0);
  } else {
    takeFadeMode();
  }
}

void MxColorChange::beatControl_Changed() {
  if (beatControl.checked()) cbFadeMode.setIndex(0);
  beatControl_Click();
  if (beatControl.checked()) takeFadeMode();
}

void MxColorChange::OK_Click() {
  markEdited(effect().colorCount >= 1);
  writeRowText(myName.text());
  effect().name = myName.text();
  effect().speed = toInt16(slSpeed.value());
  if (effect().colorCount >= 2 && effect().beatControl == 0) {
    effect().color1 = currentColor();
    setStepInterval();
    // The next colour stands in for the one before, at the end of the list the spare slot's 0.
    // The next step overwrites it (docs/kept.md, change-ok-colour).
    const int index = deck().colorIndex;
    effect().color2 = effect().colors.at(
        static_cast<std::size_t>(index != 0 ? index + 1 : effect().colorCount - 1));
    deck().timer1.enable();
  }
  renderColor(engine_, deck());
  engine_.desktop.hide(*this);
}

}  // namespace korvane
