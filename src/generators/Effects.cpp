#include "generators/Effects.h"

#include <variant>

#include "generators/color/ColorKinds.h"
#include "generators/colorchange/ColorChangeKind.h"
#include "generators/colorscroll/ColorScrollKind.h"
#include "generators/fireandwater/FireAndWaterKinds.h"
#include "generators/image/ImageKind.h"
#include "generators/paint/PaintKind.h"
#include "generators/ticker/TickerKind.h"

namespace korvane {
namespace {

// In the order of EffectType, whose numbers stand in project files.
constexpr const EffectKind* kKinds[] = {
    &kColorKind,        //
    &kGradientKind,     //
    &kPaintKind,        //
    &kImageKind,        //
    &kColorChangeKind,  //
    &kColorScrollKind,  //
    &kFireKind,         //
    &kFluidKind,        //
    &kTickerKind,       //
};

void fitList(Effect& effect, const ItemList& list) {
  const std::int16_t count = effect.*list.count;
  if (count <= 0) return;
  const std::size_t slots = static_cast<std::size_t>(count) + (list.emptyHasSlot ? 1 : 0);
  for (const ItemColumn& column : list.columns) {
    std::visit(
        [&](auto values) {
          if ((effect.*values).size() < slots) (effect.*values).resize(slots);
        },
        column.values);
  }
}

struct Copier {
  const Effect& from;
  Effect& to;
  const Variablen* matrix;

  template <class Value>
  void operator()(Value Effect::*field) const {
    to.*field = from.*field;
  }
  void operator()(Grid<Color> Effect::*field) const {
    if (matrix == nullptr) {
      to.*field = from.*field;
      return;
    }
    (to.*field).redim(matrix->matrixCols, matrix->matrixRows);
    for (int col = 0; col < matrix->matrixCols; ++col) {
      for (int row = 0; row < matrix->matrixRows; ++row)
        (to.*field).at(col, row) = (from.*field).at(col, row);
    }
  }
  void operator()(const ItemList& list) const {
    (*this)(list.count);
    for (const ItemColumn& column : list.columns) std::visit(*this, column.values);
  }
};

}  // namespace

std::span<const EffectKind* const> kinds() { return kKinds; }

const EffectKind* kindOf(std::int16_t type) {
  const bool exists = type >= 0 && static_cast<std::size_t>(type) < std::size(kKinds);
  return exists ? kKinds[type] : nullptr;
}

std::vector<std::string> kindNames() {
  std::vector<std::string> names;
  for (const EffectKind* kind : kKinds) names.emplace_back(kind->name);
  return names;
}

const std::vector<EffectField>& effectFields(std::int16_t type) {
  static const std::vector<EffectField> none;
  const EffectKind* kind = kindOf(type);
  return kind == nullptr ? none : kind->fields();
}

void fitLists(Effect& effect) {
  for (const EffectKind* kind : kKinds) {
    for (const EffectField& field : kind->fields()) {
      if (const auto* list = std::get_if<ItemList>(&field.value)) fitList(effect, *list);
    }
  }
}

void copyEffectFields(const Effect& from, Effect& to, const Variablen* matrix) {
  for (const EffectField& field : effectFields(from.type)) {
    std::visit(Copier{from, to, matrix}, field.value);
  }
  fitLists(to);
}

}  // namespace korvane
