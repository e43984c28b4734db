#include "generators/ticker/MxTickerForm.h"

#include <algorithm>
#include <array>

#include "generators/kit/BeatCode.h"
#include "generators/kit/CellWise.h"
#include "generators/kit/StepCurves.h"
#include "generators/ticker/TickerCode.h"

namespace korvane {
namespace {

// The point sizes of the entries of `myFont`.
constexpr std::array<std::int16_t, 4> kFontSizes = {5, 7, 10, 15};

}  // namespace

MxTickerForm::MxTickerForm(Engine& engine)
    : EffectDialog(engine, "MxTickerForm", "Ticker", "Blue-Red"),
      myTicker("myTicker", {.toolTip = "the text that runs", .label = "Text : "}, "TharnDesk"),
      Color1("Color1",
             {.toolTip = "colour of the text; click to mix another", .label = "Text Color : "}),
      Color2("Color2", {.toolTip = "colour around the text; click to mix another",
                        .label = "Background Color : "}),
      myFont("myFont", {.toolTip = "size of the letters", .label = "Font : "}),
      slSpeed("slSpeed", {.toolTip = "slow - fast", .label = "Speed : "}),
      slOffset("slOffset", {.toolTip = "postion of the ticker", .label = "Offset : "}),
      directionLabel("directionLabel",
                     {.caption = "Direction : ", .toolTip = "where the text runs"}),
      richtung(straightDirections()),
      Beat("Beat", {.caption = "Beat Control", .toolTip = "every beat is a step"}),
      Backward("Backward", {.caption = "Backward", .toolTip = "reverses the text-string"}),
      Mirror("Mirror", {.caption = "Mirrored", .toolTip = "mirrors the letters"}),
      Letter("Letter", {.caption = "LetterMode", .toolTip = "every step the next letter"}) {
  add({&myName, &myTicker, &Color1, &Color2, &myFont, &slSpeed, &slOffset, &directionLabel});
  add(richtung.controls());
  add({&Beat, &Backward, &Mirror, &Letter, &OK});
  declareLayout();
  bindEvents();
}

void MxTickerForm::declareLayout() {
  setLayout(column({fields({myName, myTicker, Color1, Color2, myFont, slSpeed, slOffset,
                            row({directionLabel, row(richtung.controls()), space()})}),
                    grid(2, {Beat, Backward, Mirror, Letter}), space(), row({space(), OK})}));
}

void MxTickerForm::bindEvents() {
  onLoad = [this] {
    myFont.setItems({"5-point", "7-point", "10-point", "15-point"});
    myFont.setIndex(0);
  };
  myTicker.onChange = [this] { myTicker_Change(); };
  bindColor(Color1, &Effect::color1, [this] { build(); });
  bindColor(Color2, &Effect::color2, [this] { build(); });
  bindSlider(slSpeed, &Effect::speed, [this] { setStepInterval(deck(), kFastCurve); });
  slOffset.onChange = [this] { slOffset_Change(); };
  richtung.onClick = [this](int index) { richtung_Click(index); };
  Beat.onClick = [this] { Beat_Click(); };
  bindSwitch(Backward, &Effect::tickerBackward);
  bindSwitch(Mirror, &Effect::tickerMirror);
  Letter.onClick = [this] { Letter_Click(); };
}

void MxTickerForm::bindSwitch(CheckBox& box, std::int16_t Effect::*field) {
  box.onClick = [this, &box, field] {
    effect().*field = static_cast<std::int16_t>(box.value());
    build();
  };
}

void MxTickerForm::fill() {
  fillLetter();
  myName.setText(effect().name);
  myTicker.setText(effect().tickerText);
  Color1.setBackColor(effect().color1);
  Color2.setBackColor(effect().color2);
  const auto* size = std::find(kFontSizes.begin(), kFontSizes.end(), effect().tickerFont);
  if (size != kFontSizes.end()) myFont.setIndex(static_cast<int>(size - kFontSizes.begin()));
  slSpeed.setValue(effect().speed);
  slOffset.setValue(effect().amount);
  richtung.show(effect().direction);
  Beat.setValue(effect().beatControl);
  Backward.setValue(effect().tickerBackward);
  Mirror.setValue(effect().tickerMirror);
}

// Ticking the box by program runs its handler too, which gives the record a new offset and
// direction. A dialog that opens keeps what the record holds.
void MxTickerForm::fillLetter() {
  const std::int16_t amount = effect().amount;
  const std::int16_t direction = effect().direction;
  Letter.setValue(effect().tickerLetter);
  if (effect().amount == amount && effect().direction == direction) return;
  effect().amount = amount;
  effect().direction = direction;
  build();
}

void MxTickerForm::build() { tickerBuild(engine_, deck()); }

void MxTickerForm::myTicker_Change() {
  effect().tickerText = myTicker.text();
  deck().step = 0;
  build();
}

void MxTickerForm::slOffset_Change() {
  effect().amount = static_cast<std::int16_t>(slOffset.value());
  tickerOffset(engine_, deck());
  build();
}

void MxTickerForm::richtung_Click(int index) {
  richtung.show(index);
  slOffset.setValue(0);
  deck().imagePosX = 0;
  deck().imagePosY = 0;
  effect().direction = static_cast<std::int16_t>(index);
  deck().step = 0;
  build();
}

void MxTickerForm::Beat_Click() {
  followBeat(engine_, deck(), Beat.checked());
  if (!Beat.checked()) deck().timer1.enable();
}

void MxTickerForm::Letter_Click() {
  const bool on = Letter.checked();
  richtung.show(kUp);
  slOffset.setValue(0);
  deck().timer1.disable();
  effect().tickerLetter = on ? 1 : 0;
  if (on) {
    effect().direction = kUp;
  } else {
    deck().imagePosX = 0;
    deck().imagePosY = 0;
    deck().step = 0;
  }
  slOffset_Change();
}

}  // namespace korvane
