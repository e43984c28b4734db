#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/Grid.h"

namespace korvane {

/// The numbers of the kinds that the system began with, as project files hold them.
enum EffectType : std::int16_t {
  kColor,
  kGradient,
  kPaint,
  kImage,
  kColorChange,
  kColorScroll,
  kFire,
  kFluid,
  kTicker
};

/// One record for all nine types; each type uses its own fields and leaves the others alone.
struct Effect {
  std::int16_t type = 0;                ///< EffectType
  std::string name;                     ///< text of the list row
  Color color1 = 0;                     ///< the colour, or the first one
  Color color2 = 0;                     ///< the second colour
  std::int16_t direction = 0;           ///< index of the pressed `richtung` button
  Grid<Color> paintPixels;              ///< Paint: the picture
  std::int16_t imageStretch = 0;        ///< Image: 1 stretches the picture to the matrix
  std::int16_t imageTile = 0;           ///< Image: 1 repeats the picture
  std::int16_t speed = 0;               ///< 0 - 100
  std::int16_t imageCount = 0;          ///< entries of the three image arrays; 0 stops the sequence
  std::vector<std::string> imageNames;  ///< file names, shown in the image list
  std::vector<double> itemTimes;        ///< seconds that each image or colour stays
  std::vector<std::string> imageFiles;  ///< full paths
  std::int16_t amount = 0;              ///< `slOffset`, `slFade` or `slIntensity`, 0 - 100
  std::int16_t colorCount = 0;          ///< entries of `colors`
  std::vector<Color> colors;
  std::int16_t fadeMode = 0;             ///< Color Change: 0 "None" - 8 "ScrollRight"
  std::int16_t beatControl = 0;          ///< 0: steps on its timer, else on the host's beat
  std::int16_t scrollFadeMode = 0;       ///< Color Scroll: not 0 blends the bands
  std::vector<std::int32_t> itemWidths;  ///< Color Scroll: width of each colour
  std::string tickerText;
  std::int16_t tickerFont = 0;  ///< point size; only 5 paints
  std::int16_t tickerBackward = 0;
  std::int16_t tickerMirror = 0;
  std::int16_t tickerLetter = 0;
};

enum FadeType : std::int16_t {
  kCrossFade,
  kBlackFade,
  kColorFade,
  kRandom,
  kFlowDown,
  kFillUp,
  kScrollUp,
  kScrollDown,
  kScrollLeft,
  kScrollRight,
  kAdd,
  kFadeTypes  ///< their number
};

/// The names of the fade types, in the order of their numbers.
inline constexpr std::array<const char*, kFadeTypes> kFadeTypeNames = {
    "CrossFade", "BlackFade",   "ColorFade",   "Random",       "Flow Down", "Fill up",
    "Scroll Up", "Scroll Down", "Scroll Left", "Scroll Right", "Add"};

/// One recipe of the fade list.
struct FadeEntry {
  std::int16_t type = kCrossFade;  ///< FadeType
  std::string name;
  double time = 0;  ///< length of the fade in seconds, 0 - 800
  Color color = 0;  ///< target colour of "ColorFade"
};

}  // namespace korvane
