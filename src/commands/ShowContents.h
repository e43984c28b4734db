#pragma once

#include "commands/Json.h"
#include "commands/Values.h"
#include "generators/Effects.h"
#include "platform/Numbers.h"
#include "playback/ListRows.h"
#include "state/Effect.h"
#include "state/EffectFields.h"
#include "state/Engine.h"

namespace korvane {

/// Everything of a show that a project and a definition keep, to be compared:
/// the rows of the lists in their order with what was edited in them, what is
/// selected, the master, the grid and its channels.
class ShowContents {
 public:
  static Json of(const Engine& engine) {
    const Variablen& v = engine.v;
    return {{"master", roundToInt32(v.masterValue * 200 - 100)},  // where the fader stands
            {"A", deck(v, v.A)},
            {"B", deck(v, v.B)},
            {"fades", fades(engine)},
            {"grid", grid(v)}};
  }

  static Json grid(const Variablen& v) {
    return {{"cols", v.matrixCols},
            {"rows", v.matrixRows},
            {"channels", rowsOf(v.matrixCols, v.matrixRows,
                                [&](int col, int row) { return v.channelMap.at(col, row); })}};
  }

 private:
  static constexpr double kLongestFade = 800, kNewFadeTime = 3;  // s

  static std::size_t slotAt(const ListView& list, int row) {
    return std::stoul(list.cell(row, kSlotColumn));
  }

  static Json deck(const Variablen& v, const Deck& deck) {
    Json rows = Json::array();
    for (int row = 0; row < deck.efxList.count(); ++row) {
      const std::size_t slot = slotAt(deck.efxList, row);
      // A row that nobody edited has nothing to keep.
      rows.push_back(deck.efxEdited.at(slot) ? record(v, deck.efx.at(slot)) : Json());
    }
    return {{"selected", deck.efxList.selected()}, {"rows", rows}};
  }

  /// The fields that the record's type uses: lists without their spare slot, pictures as far as the
  /// grid goes. A type that does not exist keeps its number alone.
  static Json record(const Variablen& v, const Effect& effect) {
    const Json all = toJson(effect);
    Json kept = {{"type", effect.type}};
    // An empty name comes back as that of a new effect (docs/kept.md, show-names).
    if (!effectFields(effect.type).empty())
      kept["name"] = effect.name.empty() ? "new effect" : effect.name;
    for (const EffectField& field : effectFields(effect.type)) {
      kept[field.name] = all.at(field.name);
      if (std::holds_alternative<Grid<Color> Effect::*>(field.value))
        kept[field.name] = rowsOf(v.matrixCols, v.matrixRows, [&](int col, int row) {
          return effect.paintPixels.at(col, row);
        });
      const auto* list = std::get_if<ItemList>(&field.value);
      if (list == nullptr) continue;
      const auto count = static_cast<std::size_t>(effect.*list->count);
      for (const ItemColumn& column : list->columns)
        kept[column.name] = first(count, all.at(column.name));
    }
    return kept;
  }

  static Json first(std::size_t count, const Json& items) {
    Json some = Json::array();
    for (std::size_t i = 0; i < count && i < items.size(); ++i) some.push_back(items[i]);
    return some;
  }

  static Json fades(const Engine& engine) {
    const ListView& list = engine.master.efxXList;
    Json rows = Json::array();
    for (int row = 0; row < list.count(); ++row) {
      FadeEntry fade = engine.v.efxX.at(slotAt(list, row));
      // A time that a picture of another grid has put there is refused as the fade is shown.
      if (fade.time < 0 || fade.time > kLongestFade) fade.time = kNewFadeTime;
      rows.push_back(toJson(fade));
    }
    return {{"selected", list.selected()}, {"rows", rows}};
  }
};

}  // namespace korvane
