#include "desk/undo/ShowState.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "platform/Text.h"
#include "playback/ListRows.h"

namespace korvane {
namespace {

template <class T>
bool same(const T& one, const T& other) {
  return one == other;
}
bool same(double one, double other) {
  return std::bit_cast<std::uint64_t>(one) == std::bit_cast<std::uint64_t>(other);
}
bool same(const std::vector<double>& one, const std::vector<double>& other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](double a, double b) { return same(a, b); });
}
template <class T>
bool same(const Grid<T>& one, const Grid<T>& other) {
  if (one.empty() || other.empty()) return one.empty() == other.empty();
  const auto rows = static_cast<std::size_t>(one.rows()) + 1;
  return one.cols() == other.cols() && one.rows() == other.rows() &&
         std::memcmp(one.data(), other.data(), (one.span() + rows) * sizeof(T)) == 0;
}

template <class Record>
struct Field {
  const char* words;
  bool (*alike)(const Record&, const Record&);
};

template <auto member, class Record>
bool sameField(const Record& one, const Record& other) {
  return same(one.*member, other.*member);
}

// What a Color Change shows at the moment and has shown before, and the last band of a Color
// Scroll, are noted in their records as they play; no file has them.
bool notesOfPlay(const Effect& one, const Effect& other, std::int16_t type) {
  return one.type == type && other.type == type;
}
bool sameColor1(const Effect& one, const Effect& other) {
  return one.color1 == other.color1 || notesOfPlay(one, other, kColorChange);
}
bool sameColor2(const Effect& one, const Effect& other) {
  return one.color2 == other.color2 || notesOfPlay(one, other, kColorChange) ||
         notesOfPlay(one, other, kColorScroll);
}

template <auto member>
constexpr Field<Effect> effectField(const char* words) {
  return {words, &sameField<member, Effect>};
}
template <auto member>
constexpr Field<FadeEntry> fadeField(const char* words) {
  return {words, &sameField<member, FadeEntry>};
}

// What tells most stands first: it names a step that changes several fields.
constexpr Field<Effect> kEffectFields[] = {
    effectField<&Effect::type>("kind"),
    effectField<&Effect::paintPixels>("picture"),
    effectField<&Effect::imageFiles>("images"),
    effectField<&Effect::imageNames>("images"),
    effectField<&Effect::imageCount>("images"),
    effectField<&Effect::colorCount>("colours"),
    effectField<&Effect::colors>("colours"),
    effectField<&Effect::itemWidths>("widths"),
    effectField<&Effect::itemTimes>("times"),
    {"colour", &sameColor1},
    {"second colour", &sameColor2},
    effectField<&Effect::tickerText>("text"),
    effectField<&Effect::direction>("direction"),
    effectField<&Effect::speed>("speed"),
    effectField<&Effect::amount>("amount"),
    effectField<&Effect::imageStretch>("stretch"),
    effectField<&Effect::imageTile>("tiles"),
    effectField<&Effect::fadeMode>("change"),
    effectField<&Effect::scrollFadeMode>("blend"),
    effectField<&Effect::beatControl>("beat"),
    effectField<&Effect::tickerFont>("font"),
    effectField<&Effect::tickerBackward>("backward"),
    effectField<&Effect::tickerMirror>("mirror"),
    effectField<&Effect::tickerLetter>("letters"),
    effectField<&Effect::name>("name"),
};

constexpr Field<FadeEntry> kFadeFields[] = {
    fadeField<&FadeEntry::type>("kind"),
    fadeField<&FadeEntry::time>("time"),
    fadeField<&FadeEntry::color>("colour"),
    fadeField<&FadeEntry::name>("name"),
};

template <class Record, class Fields>
bool allAlike(const Record& one, const Record& other, const Fields& fields) {
  return std::all_of(std::begin(fields), std::end(fields),
                     [&](const auto& field) { return field.alike(one, other); });
}

template <class Record, class Fields>
std::vector<const char*> wordsOf(const Record& one, const Record& other, const Fields& fields) {
  std::vector<const char*> words;
  for (const auto& field : fields) {
    if (!field.alike(one, other)) words.push_back(field.words);
  }
  return words;
}

bool sameRows(const ListView& list, const std::vector<RowState>& rows) {
  if (list.rows().size() != rows.size()) return false;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const ListView::Row& row = list.rows()[i];
    if (row.text != rows[i].text || row.sub.at(kSlotColumn - 1) != std::to_string(rows[i].slot))
      return false;
  }
  return true;
}

std::shared_ptr<const DeckState> deckState(const Deck& deck,
                                           const std::shared_ptr<const DeckState>& last) {
  static const DeckState kNone;
  const DeckState& before = last ? *last : kNone;
  std::vector<std::shared_ptr<const Effect>> slots(deck.efx.size());
  for (std::size_t i = 0; i < slots.size(); ++i) {
    const bool kept = i < before.slots.size() && alike(*before.slots[i], deck.efx[i]);
    slots[i] = kept ? before.slots[i] : std::make_shared<const Effect>(deck.efx[i]);
  }
  if (last && slots == before.slots && deck.efxEdited == before.edited &&
      deck.efxCount == before.count && deck.efxDeleted == before.deleted &&
      deck.savedFadeMode == before.chosenFadeMode && sameRows(deck.efxList, before.rows))
    return last;
  return std::make_shared<const DeckState>(DeckState{std::move(slots), deck.efxEdited,
                                                     listRows(deck.efxList), deck.efxCount,
                                                     deck.efxDeleted, deck.savedFadeMode});
}

std::shared_ptr<const FadesState> fadesState(const Engine& engine,
                                             const std::shared_ptr<const FadesState>& last) {
  const Variablen& v = engine.v;
  const ListView& list = engine.master.efxXList;
  if (last && v.efxXCount == last->count && v.efxXDeleted == last->deleted &&
      std::equal(v.efxX.begin(), v.efxX.end(), last->slots.begin(), last->slots.end(),
                 [](const FadeEntry& a, const FadeEntry& b) { return alike(a, b); }) &&
      sameRows(list, last->rows))
    return last;
  return std::make_shared<const FadesState>(
      FadesState{v.efxX, listRows(list), v.efxXCount, v.efxXDeleted});
}

std::shared_ptr<const GridState> gridState(const Plugin& plugin,
                                           const std::shared_ptr<const GridState>& last) {
  const Variablen& v = plugin.engine.v;
  const std::string& shown = plugin.matrixConf.MName.text();
  if (last && v.matrix.cols == last->matrix.cols && v.matrix.rows == last->matrix.rows &&
      same(v.channelMap.codes(), last->matrix.channelMap.codes()) &&
      same(v.cellConfigured, last->matrix.cellConfigured) &&
      v.matrixConfigured == last->configured && v.quickConfigured == last->quick &&
      v.matrixName == last->name && shown == last->shownName)
    return last;
  return std::make_shared<const GridState>(
      GridState{v.matrix, v.matrixConfigured, v.quickConfigured, v.matrixName, shown});
}

template <class T>
std::size_t bytes(const std::vector<T>& values) {
  return values.capacity() * sizeof(T);
}
std::size_t bytes(const std::string& text) { return text.capacity(); }
std::size_t bytes(const std::vector<std::string>& texts) {
  std::size_t sum = texts.capacity() * sizeof(std::string);
  for (const std::string& text : texts) sum += bytes(text);
  return sum;
}
template <class T>
std::size_t bytes(const Grid<T>& grid) {
  return grid.empty() ? 0 : sizeof(T) * (grid.span() + static_cast<std::size_t>(grid.rows()) + 1);
}
std::size_t bytes(const std::vector<RowState>& rows) {
  std::size_t sum = rows.capacity() * sizeof(RowState);
  for (const RowState& row : rows) sum += bytes(row.text);
  return sum;
}

std::size_t bytes(const Effect& effect) {
  return sizeof effect + bytes(effect.name) + bytes(effect.paintPixels) + bytes(effect.imageNames) +
         bytes(effect.imageFiles) + bytes(effect.itemTimes) + bytes(effect.colors) +
         bytes(effect.itemWidths) + bytes(effect.tickerText);
}

std::size_t bytesBeside(const DeckState& deck, const DeckState* other) {
  std::size_t sum = sizeof deck + bytes(deck.slots) + bytes(deck.edited) + bytes(deck.rows);
  for (std::size_t i = 0; i < deck.slots.size(); ++i) {
    const bool shared =
        other != nullptr && i < other->slots.size() && other->slots[i] == deck.slots[i];
    if (!shared) sum += bytes(*deck.slots[i]);
  }
  return sum;
}

}  // namespace

bool alike(const Effect& one, const Effect& other) { return allAlike(one, other, kEffectFields); }
bool alike(const FadeEntry& one, const FadeEntry& other) {
  return allAlike(one, other, kFadeFields);
}

std::vector<const char*> differences(const Effect& one, const Effect& other) {
  return wordsOf(one, other, kEffectFields);
}
std::vector<const char*> differences(const FadeEntry& one, const FadeEntry& other) {
  return wordsOf(one, other, kFadeFields);
}

std::vector<RowState> listRows(const ListView& list) {
  std::vector<RowState> rows;
  rows.reserve(list.rows().size());
  for (const ListView::Row& row : list.rows())
    rows.push_back({row.text, toInteger16(row.sub.at(kSlotColumn - 1))});
  return rows;
}

ShowState stateOf(const Plugin& plugin, const CueList& cues, const ShowState& last) {
  const Variablen& v = plugin.engine.v;
  return {{deckState(v.A, last.decks[0]), deckState(v.B, last.decks[1])},
          fadesState(plugin.engine, last.fades),
          gridState(plugin, last.grid),
          last.cues && *last.cues == cues ? last.cues : std::make_shared<const CueList>(cues)};
}

ShowState withPlaying(const Plugin& plugin, const ShowState& last) {
  ShowState state = last;
  const Variablen& v = plugin.engine.v;
  for (const Deck* deck : {&v.A, &v.B}) {
    auto& kept = state.decks[deck->isB() ? 1 : 0];
    const auto slot = static_cast<std::size_t>(deck->sel);
    if (slot >= deck->efx.size() || slot >= kept->slots.size()) continue;
    if (alike(*kept->slots[slot], deck->efx[slot])) continue;
    DeckState now = *kept;
    now.slots[slot] = std::make_shared<const Effect>(deck->efx[slot]);
    kept = std::make_shared<const DeckState>(std::move(now));
  }
  return state;
}

std::size_t bytesBeside(const ShowState& state, const ShowState& other) {
  std::size_t sum = 0;
  for (std::size_t i = 0; i < state.decks.size(); ++i) {
    if (state.decks[i] != other.decks[i]) sum += bytesBeside(*state.decks[i], other.decks[i].get());
  }
  if (state.fades != other.fades)
    sum += sizeof(FadesState) + bytes(state.fades->slots) + bytes(state.fades->rows);
  if (state.grid != other.grid) {
    const Matrix& matrix = state.grid->matrix;
    sum += sizeof(GridState) + bytes(matrix.channelMap.codes()) + bytes(matrix.cellConfigured) +
           static_cast<std::size_t>(matrix.channelMap.sendable().span()) * sizeof(Rgb);
  }
  if (state.cues != other.cues) {
    sum += sizeof(CueList) + bytes(state.cues->cues);
    for (const Cue& cue : state.cues->cues) {
      sum += bytes(cue.name);
      for (const RowRef& row : cue.rows) sum += bytes(row.name);
    }
  }
  return sum;
}

}  // namespace korvane
