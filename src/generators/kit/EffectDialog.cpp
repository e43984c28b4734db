#include "generators/kit/EffectDialog.h"

#include "generators/kit/MxColorMixer.h"

namespace korvane {
namespace {

constexpr int kEnter = 13;

}  // namespace

EffectDialog::EffectDialog(Engine& engine, std::string name, std::string caption,
                           std::string defaultName)
    : Form(std::move(name), std::move(caption)),
      myName("myName", {.toolTip = "name of the effect; Enter takes it", .label = "Name : "},
             std::move(defaultName)),
      OK("OK", {.caption = "OK", .toolTip = "take the name and close"}),
      engine_(engine) {
  myName.onKeyPress = [this](int key) {
    if (key == kEnter) OK_Click();
  };
  OK.onClick = [this] { OK_Click(); };
}

void EffectDialog::open() {
  load();
  fill();
  engine_.desktop.show(*this);
}

void EffectDialog::markEdited(bool edited) {
  effect();  // the slot must exist
  deck().efxEdited.at(static_cast<std::size_t>(deck().sel)) = edited;
}

void EffectDialog::writeRowText(const std::string& text) {
  ListView& list = deck().efxList;
  list.setCell(list.current(), 0, text);
}

void EffectDialog::OK_Click() {
  markEdited(true);
  writeRowText(myName.text());
  effect().name = myName.text();
  engine_.desktop.hide(*this);
}

void EffectDialog::commit() {
  if (visible()) OK_Click();
}

void EffectDialog::bindColor(ColorBox& box, Color Effect::*field, std::function<void()> then) {
  box.onClick = [this, &box, field, then = std::move(then)] {
    pickColor(engine_, box.backColor(), [this, &box, field, then](Color picked) {
      box.setBackColor(picked);
      effect().*field = picked;
      if (then) then();
    });
  };
}

void EffectDialog::bindSlider(Slider& slider, std::int16_t Effect::*field,
                              std::function<void()> then) {
  slider.onChange = [this, &slider, field, then = std::move(then)] {
    effect().*field = static_cast<std::int16_t>(slider.value());
    if (then) then();
  };
}

}  // namespace korvane
