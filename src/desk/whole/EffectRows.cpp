#include "desk/whole/EffectRows.h"

#include <string>
#include <utility>

#include "playback/EffectLists.h"

namespace korvane {
namespace {

/// While it lives, another row of a deck may be the selected one and nothing starts; then the row
/// that was it is so again, if it is still there.
class OtherRow {
 public:
  explicit OtherRow(Deck& deck)
      : deck_(deck),
        slot_(deck.sel),
        type_(deck.type.index()),
        typeClick_(std::exchange(deck.type.onClick, nullptr)) {}
  ~OtherRow() {
    const int row = rowOfSlot(deck_.efxList, slot_);
    if (row >= 0) {
      deck_.sel = slot_;
      deck_.type.setIndex(type_);
      deck_.efxList.select(row);
    }
    deck_.type.onClick = std::move(typeClick_);
  }
  OtherRow(const OtherRow&) = delete;
  OtherRow& operator=(const OtherRow&) = delete;

  void select(std::int16_t slot) const {
    deck_.efxList.select(rowOfSlot(deck_.efxList, slot));
    deck_.sel = slot;
  }

 private:
  Deck& deck_;
  std::int16_t slot_;
  int type_;
  std::function<void()> typeClick_;
};

// Moves the row of a slot to a place, by as many presses as it takes.
void moveTo(Engine& engine, Deck& deck, std::int16_t slot, int place) {
  const OtherRow other(deck);
  other.select(slot);
  while (deck.efxList.current() < place) down_Click(engine, deck);
  while (deck.efxList.current() > place) up_Click(engine, deck);
}

}  // namespace

EffectRows::EffectRows(DeskSession& session) : session_(session) {
  bind(session.plugin.engine.v.A, session.plugin.matrixForm.panelA);
  bind(session.plugin.engine.v.B, session.plugin.matrixForm.panelB);
}

void EffectRows::bind(Deck& deck, DeckPanel& panel) {
  ListView& list = deck.efxList;
  const auto act = [this, &deck](auto what) {
    return [this, &deck, what](const std::vector<int>& rows) {
      const RowSlots slots = slotsAt(deck.efxList, rows);
      session_.commitDialogs();
      (this->*what)(deck, slots);
    };
  };
  list.actions = {
      {"Edit ...", "",
       [&list, &panel](const std::vector<int>& rows) {
         if (list.current() != rows.front()) list.click(rows.front(), 0);
         panel.edit.click();
       }},
      {"Rename", "F2", [&list](const std::vector<int>& rows) { list.beginEdit(rows.front(), 0); }},
      {"Duplicate", "Ctrl+D", act(&EffectRows::duplicate)},
      {"Remove", "Del", act(&EffectRows::remove)},
  };
  list.takesRowsOf = [this](const ListView& from) {
    const Variablen& v = session_.plugin.engine.v;
    return &from == &v.A.efxList || &from == &v.B.efxList;
  };
  list.onDrop = [this, &deck](const ListView::Drop& dropped) { drop(deck, dropped); };
  list.onEdited = [this, &deck](int row, int) { rename(deck, row); };
}

void EffectRows::refresh() {
  for (Deck* deck : {&session_.plugin.engine.v.A, &session_.plugin.engine.v.B})
    letNamesBeTyped(deck->efxList);
}

Deck& EffectRows::deckOf(const ListView& list) {
  Variablen& v = session_.plugin.engine.v;
  return &list == &v.A.efxList ? v.A : v.B;
}

// The warning of many that are gone is told once. What plays goes last, as its button does it.
void EffectRows::remove(Deck& deck, const RowSlots& slots) {
  Engine& engine = session_.plugin.engine;
  const std::int16_t playing = deck.sel;
  for (auto slot = slots.rbegin(); slot != slots.rend(); ++slot) {
    if (*slot == playing) continue;
    const auto one = [&] {
      const OtherRow other(deck);
      other.select(*slot);
      remove_Click(engine, deck);
    };
    slot + 1 == slots.rend() ? one() : session_.platform.quietly(one);
  }
  if (!contains(slots, playing)) return;
  deck.efxList.select(rowOfSlot(deck.efxList, playing));
  remove_Click(engine, deck);
}

void EffectRows::move(Deck& deck, const RowSlots& slots, int before) {
  moveSlots(deck.efxList, slots, before, [&](std::int16_t slot, int place) {
    moveTo(session_.plugin.engine, deck, slot, place);
  });
}

// By the clipboard, which then holds what it held before.
void EffectRows::copy(Deck& from, const RowSlots& slots, Deck& to, int before) {
  Engine& engine = session_.plugin.engine;
  const Effect clipboard = engine.v.efxClipboard;
  for (const std::int16_t slot : slots) {
    {
      const OtherRow other(from);
      other.select(slot);
      copyMem_Click(engine, from);
    }
    const int count = to.efxList.count();
    add_Click(engine, to);
    if (to.efxList.count() == count) break;  // there is no room, and that was told
    const std::int16_t fresh = slotAt(to.efxList, count);
    {
      const OtherRow other(to);
      other.select(fresh);
      pasteRecord(engine, to);
    }
    moveTo(engine, to, fresh, before++);
  }
  engine.v.efxClipboard = clipboard;
}

void EffectRows::duplicate(Deck& deck, const RowSlots& slots) {
  copy(deck, slots, deck, rowOfSlot(deck.efxList, slots.back()) + 1);
}

// As the dialogs' OK does it.
void EffectRows::rename(Deck& deck, int row) {
  const std::string name = deck.efxList.cell(row, 0);
  session_.commitDialogs();
  deck.efxList.setCell(row, 0, name);
  const auto slot = static_cast<std::size_t>(slotAt(deck.efxList, row));
  deck.efx.at(slot).name = name;
  deck.efxEdited.at(slot) = true;
}

void EffectRows::drop(Deck& to, const ListView::Drop& dropped) {
  Deck& from = deckOf(dropped.from);
  const RowSlots slots = slotsAt(dropped.from, dropped.rows);
  session_.commitDialogs();
  if (&from == &to && !dropped.copy) return move(to, slots, dropped.before);
  const int count = to.efxList.count();
  copy(from, slots, to, dropped.before);
  const bool all = to.efxList.count() == count + static_cast<int>(slots.size());
  if (!dropped.copy && all) remove(from, slots);
}

}  // namespace korvane
