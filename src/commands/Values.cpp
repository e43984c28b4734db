#include "commands/Values.h"

#include <functional>
#include <map>

#include "commands/CommandError.h"

namespace korvane {
namespace {

using Read = std::function<Json(const Variablen&)>;
using Row = std::pair<std::string, Read>;
using Rows = std::vector<Row>;

template <class T>
Json json(const T& value) {
  return value;
}
template <>
Json json(const Boolean& value) {
  return static_cast<bool>(value);
}

template <class T>
Rows one(const char* name, T Variablen::*member) {
  return {{name, [member](const Variablen& v) { return json(v.*member); }}};
}

Rows side(const char* name, std::int16_t Matrix::*member) {
  return {{name, [member](const Variablen& v) { return json(v.matrix.*member); }}};
}

Rows color(const char* name, Color Variablen::*member) {
  return {{name, [member](const Variablen& v) { return hexColor(v.*member); }}};
}

/// A variable of both decks; its name holds the deck's letter between the two parts.
template <class T>
Rows twins(const std::string& before, T Deck::*member, const std::string& after = {}) {
  return {{before + "A" + after, [member](const Variablen& v) { return json(v.A.*member); }},
          {before + "B" + after, [member](const Variablen& v) { return json(v.B.*member); }}};
}

Rows preview(const std::string& name, std::int16_t PreviewGeometry::*member) {
  return {{name + "A", [member](const Variablen& v) { return json(v.A.preview.*member); }},
          {name + "B", [member](const Variablen& v) { return json(v.B.preview.*member); }},
          {name + "M", [member](const Variablen& v) { return json(v.previewM.*member); }}};
}

std::vector<Rows> sharedScalars() {
  return {
      side("matrixCols", &Matrix::cols),
      side("matrixRows", &Matrix::rows),
      one("matrixConfigured", &Variablen::matrixConfigured),
      one("quickConfigured", &Variablen::quickConfigured),
      one("configChanged", &Variablen::configChanged),
      one("matrixName", &Variablen::matrixName),
      one("projectName", &Variablen::projectName),
      one("projectBaseFilename", &Variablen::projectBaseFilename),
      one("projectDirectory", &Variablen::projectDirectory),
      one("cellCol", &Variablen::cellCol),
      one("cellRow", &Variablen::cellRow),
      preview("previewCell", &PreviewGeometry::cell),
      preview("previewBox", &PreviewGeometry::box),
      preview("previewLeft", &PreviewGeometry::left),
      preview("previewTop", &PreviewGeometry::top),
      twins("efx", &Deck::efxCount, "Count"),
      one("efxXCount", &Variablen::efxXCount),
      twins("efx", &Deck::efxDeleted, "Deleted"),
      one("efxXDeleted", &Variablen::efxXDeleted),
      twins("sel", &Deck::sel),
      one("selX", &Variablen::selX),
      one("editDeck", &Variablen::editDeck),
      one("masterValue", &Variablen::masterValue),
      one("fadeRunning", &Variablen::fadeRunning),
      one("fadeTypeNow", &Variablen::fadeTypeNow),
      one("fadeTime", &Variablen::fadeTime),
      one("fadeSteps", &Variablen::fadeSteps),
      one("fadeStep", &Variablen::fadeStep),
      one("fadeDirection", &Variablen::fadeDirection),
      twins("colorIndex", &Deck::colorIndex),
      twins("savedFadeMode", &Deck::savedFadeMode),
      twins("imageIndex", &Deck::imageIndex),
      twins("imagePosX", &Deck::imagePosX),
      twins("imagePosY", &Deck::imagePosY),
      twins("scrollLength", &Deck::scrollLength),
      twins("tickerMaxWidth", &Deck::tickerMaxWidth),
      twins("transitionRunning", &Deck::transitionRunning),
      twins("steps", &Deck::steps),
      twins("step", &Deck::step),
      twins("fadeFactor", &Deck::fadeFactor),
      twins("beatOn", &Deck::beatOn),
      one("beatControlSeen", &Variablen::beatControlSeen),
      one("outputActive", &Variablen::outputActive),
      one("simActive", &Variablen::simActive),
      one("simOpen", &Variablen::simOpen),
      one("simCellW", &Variablen::simCellW),
      one("simCellH", &Variablen::simCellH),
      one("simLeft", &Variablen::simLeft),
      one("simTop", &Variablen::simTop),
      one("maxChannels", &Variablen::maxChannels),
      one("viewMode", &Variablen::viewMode),
      color("colorBlack", &Variablen::colorBlack),
      color("colorWhite", &Variablen::colorWhite),
      color("colorGray", &Variablen::colorGray),
      color("colorBlue", &Variablen::colorBlue),
      color("colorRed", &Variablen::colorRed),
      color("colorGreen", &Variablen::colorGreen),
      color("colorYellow", &Variablen::colorYellow),
      color("colorFadeActive", &Variablen::colorFadeActive),
      color("colorFadeIdle", &Variablen::colorFadeIdle),
      color("pickedColor", &Variablen::pickedColor),
      color("pickedColorBefore", &Variablen::pickedColorBefore),
  };
}

std::map<std::string, Read> byName() {
  std::map<std::string, Read> all;
  for (const Rows& rows : sharedScalars()) all.insert(rows.begin(), rows.end());
  return all;
}

}  // namespace

Json sharedValue(const Variablen& state, const std::string& name) {
  static const std::map<std::string, Read> kByName = byName();
  const auto found = kByName.find(name);
  if (found == kByName.end())
    throw CommandError("There is no shared value " + inQuotes(name) + ".");
  return found->second(state);
}

}  // namespace korvane
