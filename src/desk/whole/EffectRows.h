#pragma once

#include <cstdint>
#include <vector>

#include "desk/show/DeskSession.h"

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
  using Slots = std::vector<std::int16_t>;

  void bind(Deck& deck, DeckPanel& panel);
  Deck& deckOf(const ListView& list);
  void remove(Deck& deck, const Slots& slots);
  void move(Deck& deck, const Slots& slots, int before);
  void copy(Deck& from, const Slots& slots, Deck& to, int before);
  void duplicate(Deck& deck, const Slots& slots);
  void rename(Deck& deck, int row);
  void drop(Deck& to, const ListView::Drop& drop);

  DeskSession& session_;
};

}  // namespace korvane
