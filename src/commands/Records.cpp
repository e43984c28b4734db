#include "commands/Values.h"

namespace korvane {

Json toJson(const Effect& effect) {
  const Grid<Color>& picture = effect.paintPixels;
  return {{"type", effect.type},
          {"name", effect.name},
          {"color1", effect.color1},
          {"color2", effect.color2},
          {"direction", effect.direction},
          {"paintPixels", rowsOf(picture.cols(), picture.rows(),
                                 [&](int col, int row) { return picture.at(col, row); })},
          {"imageStretch", effect.imageStretch},
          {"imageTile", effect.imageTile},
          {"speed", effect.speed},
          {"imageCount", effect.imageCount},
          {"imageNames", effect.imageNames},
          {"itemTimes", effect.itemTimes},
          {"imageFiles", effect.imageFiles},
          {"amount", effect.amount},
          {"colorCount", effect.colorCount},
          {"colors", effect.colors},
          {"fadeMode", effect.fadeMode},
          {"beatControl", effect.beatControl},
          {"scrollFadeMode", effect.scrollFadeMode},
          {"itemWidths", effect.itemWidths},
          {"tickerText", effect.tickerText},
          {"tickerFont", effect.tickerFont},
          {"tickerBackward", effect.tickerBackward},
          {"tickerMirror", effect.tickerMirror},
          {"tickerLetter", effect.tickerLetter}};
}

Json toJson(const FadeEntry& fade) {
  return {{"type", fade.type}, {"name", fade.name}, {"time", fade.time}, {"color", fade.color}};
}

}  // namespace korvane
