#include "generators/kit/MxColorMixer.h"

#include "platform/Numbers.h"

namespace korvane {
namespace {

constexpr int kStripWidth = 28;
constexpr int kStripHeight = 128;

constexpr SliderRange kComponentRange{0, 255, true};
constexpr PictureBox::Size kStripSize{kStripWidth, kStripHeight, PictureBox::Sizing::Fixed};

}  // namespace

MxColorMixer::MxColorMixer(Engine& engine)
    : Form("MxColorMixer", "ColorMixer"),
      Sred("Sred", kComponentRange, {.caption = "Red", .toolTip = "share of red, 0 - 255"}),
      Sgreen("Sgreen", kComponentRange, {.caption = "Green", .toolTip = "share of green, 0 - 255"}),
      Sblue("Sblue", kComponentRange, {.caption = "Blue", .toolTip = "share of blue, 0 - 255"}),
      Pred("Pred", kStripSize, {.toolTip = "click to take this share of red"}),
      Pgreen("Pgreen", kStripSize, {.toolTip = "click to take this share of green"}),
      Pblue("Pblue", kStripSize, {.toolTip = "click to take this share of blue"}),
      Presult("Presult", {.caption = "Result", .toolTip = "the mixed colour"}),
      Bok("Bok", {.caption = "OK", .toolTip = "take the mixed colour"}),
      Bcancel("Bcancel", {.caption = "Cancel", .toolTip = "keep the colour as it was"}),
      engine_(engine),
      components_{
          {{&Sred, &Pred, kRedMask}, {&Sgreen, &Pgreen, kGreenMask}, {&Sblue, &Pblue, kBlueMask}}} {
  add({&Sred, &Pred, &Sgreen, &Pgreen, &Sblue, &Pblue, &Presult, &Bok, &Bcancel});
  setLayout(column({row({row({Sred, Pred}), space(), row({Sgreen, Pgreen}), space(),
                         row({Sblue, Pblue}), space(), column({Layout(Presult, 1)}, 4)},
                        1),
                    row({space(), Bok, Bcancel})}));
  for (const Component& component : components_) {
    component.slider->onChange = [this] { updateColorPictures(); };
    component.strip->onMouseDown = [this](int x, int y) {
      mouseX_ = x;
      mouseY_ = y;
    };
    component.strip->onClick = [this, &component] { pickFromStrip(component); };
  }
  onActivate = [this] { updateColorPictures(); };
  onClose = [this] { engine_.v.pickedColor = engine_.v.pickedColorBefore; };
  Bok.onClick = [this] {
    engine_.v.pickedColor = Presult.backColor();
    engine_.desktop.hide(*this);
  };
  Bcancel.onClick = [this] { engine_.desktop.close(*this); };
}

Color MxColorMixer::mixed(const Component& own, int value) const {
  std::array<int, 3> parts{};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    parts[i] = components_[i].slider == own.slider ? value : components_[i].slider->value();
  }
  return rgb(parts[0], parts[1], parts[2]);
}

void MxColorMixer::drawStrip(const Component& component, Color marker) {
  Raster& canvas = component.strip->canvas();
  for (int i = 0; i < kStripHeight; ++i) {
    const int y = kStripHeight - 1 - i;
    canvas.fillRect(0, y, kStripWidth - 1, y, mixed(component, 2 * i));
  }
  const int y = roundToInt32(kStripHeight - 1 - component.slider->value() / 2.0);
  canvas.fillRect(0, y, kStripWidth - 1, y, marker);
  component.strip->touched();
}

void MxColorMixer::updateColorPictures() {
  const int average = (Sred.value() + Sgreen.value() + Sblue.value()) / 3;
  const Color marker = average > 128 ? rgb(0, 0, 0) : rgb(255, 255, 255);
  for (const Component& component : components_) drawStrip(component, marker);
  Presult.setBackColor(rgb(Sred.value(), Sgreen.value(), Sblue.value()));
}

// A strip holds even values only, and its marker: a click on the marker takes the marker's own
// component.
void MxColorMixer::pickFromStrip(const Component& component) {
  const Color pixel = component.strip->raster().pixel(mouseX_, mouseY_);
  component.slider->setValue(colorPart(pixel, component.mask));
}

void MxColorMixer::open(Color start, std::function<void(Color)> picked) {
  for (const Component& component : components_)
    component.slider->setValue(colorPart(start, component.mask));
  updateColorPictures();
  engine_.desktop.showModal(*this,
                            [this, picked = std::move(picked)] { picked(engine_.v.pickedColor); });
}

void pickColor(Engine& engine, Color before, std::function<void(Color)> picked) {
  engine.v.pickedColorBefore = before;
  engine.desktop.get<MxColorMixer>().open(before, std::move(picked));
}

}  // namespace korvane
