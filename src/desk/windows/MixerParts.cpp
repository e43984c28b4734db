#include "desk/windows/MixerParts.h"

#include <algorithm>
#include <utility>

namespace korvane {
namespace {

constexpr SliderRange kHues{0, 359};
constexpr SliderRange kPercents{0, 100};
constexpr int kRecentInARow = 6;

}  // namespace

MixerParts::MixerParts(MxColorMixer& mixer)
    : hex("hex",
          {.toolTip = "the colour in hexadecimal digits, as in FF8000 or F80", .label = "Hex : "},
          "000000", {.commit = TextBoxStyle::Commit::OnLeave}),
      hue("hue", kHues, {.toolTip = "hue, 0 - 359 degrees", .label = "Hue : "}),
      saturation("saturation", kPercents,
                 {.toolTip = "saturation, 0 - 100 %", .label = "Saturation : "}),
      value("value", kPercents, {.toolTip = "value, 0 - 100 %", .label = "Value : "}),
      said("said"),
      lately("lately", {.caption = "Recent : "}),
      mixer_(mixer) {
  std::vector<Control*> parts = {&hex, &said, &hue, &saturation, &value, &lately};
  std::vector<Layout> boxes;
  for (std::size_t i = 0; i < kMostRecent; ++i) {
    recent.push_back(std::make_unique<ColorBox>("recent(" + std::to_string(i) + ")"));
    parts.push_back(recent.back().get());
    boxes.emplace_back(*recent.back());
  }
  mixer.extend(
      parts, column({row({hex, Layout(said, 1)}), fields({hue, saturation, value}),
                     row({column({lately, space()}), grid(kRecentInARow, std::move(boxes), 1)})}));
  setRecentColors({});
  bindParts();
  bindMixer();
}

void MixerParts::bindParts() {
  hex.onChange = [this] { takeHex(); };
  for (Slider* slider : {&hue, &saturation, &value})
    slider->onChange = [this] {
      if (!taking_) take(colorOf({hue.value(), saturation.value(), value.value()}));
    };
  for (const auto& box : recent) box->onClick = [this, &box = *box] { take(box.backColor()); };
}

void MixerParts::bindMixer() {
  for (Slider* slider : {&mixer_.Sred, &mixer_.Sgreen, &mixer_.Sblue})
    slider->onChange = [this, own = slider->onChange] {
      own();
      follow();
    };
  mixer_.onActivate = [this, own = mixer_.onActivate] {
    own();
    follow();
  };
  // What was typed wrong must not pass for the colour that is taken.
  mixer_.Bok.onClick = [this, own = mixer_.Bok.onClick] {
    if (!parseHex(hex.text())) return takeHex();
    noteTaken();
    own();
  };
}

Color MixerParts::mixed() const {
  return rgb(mixer_.Sred.value(), mixer_.Sgreen.value(), mixer_.Sblue.value());
}

void MixerParts::take(Color color) {
  const bool outer = std::exchange(taking_, true);
  const Rgb parts = colorParts(color);
  mixer_.Sred.setValue(parts[0]);
  mixer_.Sgreen.setValue(parts[1]);
  mixer_.Sblue.setValue(parts[2]);
  taking_ = outer;
  follow();
}

void MixerParts::takeHex() {
  if (const auto color = parseHex(hex.text())) return take(*color);
  said.setCaption("no colour: digits as in FF8000");
}

// Several hues stand for one dark colour: those that a person has set stay.
void MixerParts::follow() {
  if (taking_) return;
  taking_ = true;
  const Color color = mixed();
  const Hsv before{hue.value(), saturation.value(), value.value()};
  if (colorOf(before) != color) {
    const Hsv now = hsvOf(color, before);
    hue.setValue(now.hue);
    saturation.setValue(now.saturation);
    value.setValue(now.value);
  }
  if (parseHex(hex.text()) != color) hex.setText(hexText(color));
  said.setCaption("");
  taking_ = false;
}

void MixerParts::noteTaken() {
  std::vector<Color> colors = colors_;
  const Color taken = mixer_.Presult.backColor();
  std::erase(colors, taken);
  colors.insert(colors.begin(), taken);
  setRecentColors(std::move(colors));
  if (onRecent) onRecent();
}

void MixerParts::setRecentColors(std::vector<Color> colors) {
  colors_ = std::move(colors);
  if (colors_.size() > kMostRecent) colors_.resize(kMostRecent);
  lately.setVisible(!colors_.empty());
  for (std::size_t i = 0; i < kMostRecent; ++i) {
    ColorBox& box = *recent[i];
    box.setVisible(i < colors_.size());
    if (i >= colors_.size()) continue;
    box.setBackColor(colors_[i]);
    box.setToolTip("take " + hexText(colors_[i]) + " again");
  }
}

}  // namespace korvane
