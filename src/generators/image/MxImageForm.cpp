#include "generators/image/MxImageForm.h"

#include "generators/Effects.h"
#include "generators/image/ImageCode.h"
#include "generators/kit/StepCurves.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

constexpr int kLastOfPicture = 8;

}  // namespace

MxImageForm::MxImageForm(Engine& engine)
    : EffectDialog(engine, "MxImageForm", "Images", ""),
      BImage("BImage", {.caption = "Images", .toolTip = "the pictures and how long each stays"}),
      PStretch("PStretch",
               {.caption = "stretch", .toolTip = "squeeze the picture to the matrix; it stands"}),
      PTile("PTile",
            {.caption = "tile", .toolTip = "repeat a picture that is smaller than the matrix"}),
      richtung(directionsUpTo(kLastOfPicture)),
      Slider1("Slider1",
              {.caption = "Slow - Fast", .toolTip = "how fast it travels", .label = "Speed :"}),
      slOffset("slOffset",
               {.toolTip = "where it starts, in per cent of the spare width", .label = "Offset :"}),
      Cancel("Cancel", {.caption = "Cancel", .toolTip = "put the effect back as it was"}),
      imageList(engine) {
  add({&myName, &BImage, &PStretch, &PTile});
  add(richtung.controls());
  add({&Slider1, &slOffset, &OK, &Cancel});
  setLayout(
      column({fields({myName}), row({BImage, space(), PStretch, PTile}), row(richtung.controls()),
              fields({Slider1, slOffset}), space(), row({space(), OK, Cancel})}));
  BImage.onClick = [this] { imageList.open(); };
  PStretch.onClick = [this] { PStretch_Click(); };
  PTile.onClick = [this] { PTile_Click(); };
  richtung.onClick = [this](int index) { richtung_Click(index); };
  Slider1.onChange = [this] { Slider1_Change(); };
  slOffset.onChange = [this] { slOffset_Change(); };
  Cancel.onClick = [this] { Cancel_Click(); };
}

void MxImageForm::fill() {
  if (effect().direction > kLastOfPicture) effect().direction = 0;
  myName.setText(effect().name);
  richtung.show(effect().direction);
  PStretch.setValue(effect().imageStretch);
  PTile.setValue(effect().imageTile);
  Slider1.setValue(effect().speed);
  slOffset.setValue(effect().amount);
}

void MxImageForm::restart() {
  placeImage(engine_, deck());
  prepareImage(engine_, deck());
}

void MxImageForm::PStretch_Click() {
  effect().imageStretch = toInt16(PStretch.value());
  if (PStretch.checked()) deck().timer1.disable();
  prepareImage(engine_, deck());
}

void MxImageForm::PTile_Click() {
  effect().imageTile = toInt16(PTile.value());
  prepareImage(engine_, deck());
}

// A direction starts the travel at any speed, 0 included, with the interval that the timer has.
void MxImageForm::richtung_Click(int index) {
  richtung.show(index);
  effect().direction = toInt16(index);
  restart();
  const bool travels = !PStretch.checked() && index > 0 && effect().imageCount > 0;
  deck().timer1.setEnabled(travels);
}

void MxImageForm::Slider1_Change() {
  effect().speed = toInt16(Slider1.value());
  setStepInterval(deck(), kSlowCurve);
}

void MxImageForm::slOffset_Change() {
  effect().amount = toInt16(slOffset.value());
  restart();
}

void MxImageForm::OK_Click() {
  EffectDialog::OK_Click();
  effect().speed = toInt16(Slider1.value());
  effect().amount = toInt16(slOffset.value());
  if (effect().imageCount > 1) holdImage(deck(), 0);
  restart();
}

void MxImageForm::commit() {
  imageList.commit();
  EffectDialog::commit();
}

// As in the Color dialog, the backup of deck A is never filled: Cancel there empties the list of
// pictures (docs/kept.md, deck-cancel-image).
void MxImageForm::Cancel_Click() {
  Effect backup = deck().efxBackup;
  backup.type = kImage;
  myName.setText(backup.name);
  copyEffectFields(backup, effect());
  prepareImage(engine_, deck());
  engine_.desktop.hide(*this);
}

}  // namespace korvane
