#pragma once

#include "desk/show/DeskSession.h"
#include "desk/whole/RowSlots.h"

namespace korvane {

/// What a person does with rows of the decks' lists beside the tool's own buttons: drags them
/// within a list or to the other one, removes several, duplicates and renames. It is made of what
/// the buttons do; an effect that plays and stays goes on.
class EffectRows {
 public:
  explicit EffectRows(DeskSession& session);

  /// After each event of a person: a show that was begun has made its lists anew.
  void refresh();

 private:
  void bind(Deck& deck, DeckPanel& panel);
  Deck& deckOf(const ListView& list);
  void remove(Deck& deck, const RowSlots& slots);
  void move(Deck& deck, const RowSlots& slots, int before);
  void copy(Deck& from, const RowSlots& slots, Deck& to, int before);
  void duplicate(Deck& deck, const RowSlots& slots);
  void rename(Deck& deck, int row);
  void drop(Deck& to, const ListView::Drop& drop);

  DeskSession& session_;
};

}  // namespace korvane
