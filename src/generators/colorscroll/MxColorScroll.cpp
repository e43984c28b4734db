#include "generators/colorscroll/MxColorScroll.h"

#include "generators/colorchange/MxColorChange.h"
#include "generators/colorscroll/ColorScrollCode.h"
#include "generators/kit/StepCurves.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

constexpr int kLastOfScroll = 12;
constexpr std::int16_t kDefaultSpeed = 50;

}  // namespace

MxColorScroll::MxColorScroll(Engine& engine)
    : ColorListDialog(engine, {"MxColorScroll", "Color Scroll", "", "10s - 0,2s"},
                      {"Width", "1", normalWidth}),
      directionLabel("directionLabel",
                     {.caption = "Direction : ", .toolTip = "where the colours scroll"}),
      richtung(directionsUpTo(kLastOfScroll)),
      fadeMode("fadeMode",
               {.toolTip = "let each colour blend into the next", .label = "Fade Mode : "}) {
  add({&myName, &ColorList, &addColor, &removeColor, &upColor, &downColor, &slSpeed,
       &directionLabel});
  add(richtung.controls());
  add({&fadeMode, &beatControl, &OK});
  setLayout(column({fields({myName}), listLayout(),
                    fields({slSpeed, row({directionLabel, row(richtung.controls()), space()}),
                            fadeMode, beatControl}),
                    row({space(), OK})}));
  bindSlider(slSpeed, &Effect::speed, [this] { setStepInterval(deck(), kSlowCurve); });
  richtung.onClick = [this](int index) { richtung_Click(index); };
  fadeMode.onClick = [this] { fadeMode_Click(); };
  beatControl.onClick = [this] { beatControl_Click(); };
  onActivate = [this] { richtung.show(effect().direction); };
}

// The speed opens in the slider of the Color Change dialog; the slider here keeps the position of
// its last use (docs/kept.md, scroll-speed).
void MxColorScroll::fill() {
  myName.setText(effect().name);
  fillList(effect().itemWidths);
  if (effect().speed == 0) effect().speed = kDefaultSpeed;
  engine_.desktop.get<MxColorChange>().slSpeed.setValue(effect().speed);
  fadeMode.setValue(effect().scrollFadeMode);
  beatControl.setValue(effect().beatControl);
}

void MxColorScroll::updateColorList2() {
  takeEntries<std::int32_t>(&Effect::itemWidths, roundToInt32);
  buildScrollStrip(engine_, deck());
  // `steps` is the counter of a colour change's transitions. The test against it is kept
  // (docs/kept.md, scroll-position); that against the strip keeps a shorter one running.
  std::int16_t& index = deck().colorIndex;
  if (index == -1 || index > deck().steps || index > deck().scrollLength) index = 0;
  if (effect().colorCount < 2 || beatControl.checked()) return;
  runStepTimer(deck(), kSlowCurve);
}

void MxColorScroll::richtung_Click(int index) {
  effect().direction = toInt16(index);
  deck().step = 0;
  richtung.show(index);
}

void MxColorScroll::fadeMode_Click() {
  effect().scrollFadeMode = toInt16(fadeMode.value());
  buildScrollStrip(engine_, deck());
}

void MxColorScroll::OK_Click() {
  markEdited(effect().colorCount >= 1);
  writeRowText(myName.text());
  // On deck B the new name lives in the list alone, and a saved project holds the old one
  // (docs/kept.md, deck-scroll-name).
  if (!deck().isB()) effect().name = myName.text();
  const Timer& timer = deck().timer1;
  if (!timer.enabled() || timer.interval() == 0) updateColorList2();
  engine_.desktop.hide(*this);
}

}  // namespace korvane
