#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "desk/windows/ColorWords.h"
#include "generators/kit/MxColorMixer.h"

namespace korvane {

/// What the desk puts into the colour mixer below its three sliders: the colour in hexadecimal
/// digits, by hue, saturation and value, and those that were used lately. All of it moves the
/// mixer's own sliders, and follows them.
class MixerParts {
 public:
  static constexpr std::size_t kMostRecent = 12;

  explicit MixerParts(MxColorMixer& mixer);
  MixerParts(const MixerParts&) = delete;
  MixerParts& operator=(const MixerParts&) = delete;

  /// The colours that were taken by OK, the newest first, none twice.
  const std::vector<Color>& recentColors() const { return colors_; }
  void setRecentColors(std::vector<Color> colors);
  std::function<void()> onRecent;  ///< a colour was taken

  TextBox hex;
  Slider hue, saturation, value;
  Label said, lately;
  std::vector<std::unique_ptr<ColorBox>> recent;

 private:
  void bindParts();
  void bindMixer();
  Color mixed() const;
  /// Puts a colour on the mixer's sliders.
  void take(Color color);
  void takeHex();
  /// Shows the colour of the mixer's sliders.
  void follow();
  void noteTaken();

  MxColorMixer& mixer_;
  std::vector<Color> colors_;
  bool taking_ = false;
};

}  // namespace korvane
