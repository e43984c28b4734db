#pragma once

#include "state/Engine.h"

namespace korvane {

// The handlers of a deck's effect list. Records live in slots and never move; rows come and go.

/// Adds a row with a Color effect in the deck's own colour. Only the first row of a list is
/// selected, and nothing starts.
void add_Click(Engine& engine, Deck& deck);
/// Removes the selected row; the row above it is selected.
void remove_Click(Engine& engine, Deck& deck);
/// Moves the selected row one place.
void up_Click(Engine& engine, Deck& deck);
void down_Click(Engine& engine, Deck& deck);
/// Blanks the selected effect and the deck.
void clear_Click(Engine& engine, Deck& deck);
/// Copies the selected record to `efxClipboard`, or `efxClipboard` into the selected record.
void copyMem_Click(Engine& engine, Deck& deck);
void pasteMem_Click(Engine& engine, Deck& deck);
/// What a paste writes: `efxClipboard` into the record and the row of the slot `sel`.
void pasteRecord(Engine& engine, Deck& deck);
/// A person chose a type, perhaps the one that the effect has: it has content to save from now on.
void type_Chosen(Deck& deck);
/// The type list got another entry.
void type_Click(Engine& engine, Deck& deck);
/// Opens the dialog of the selected effect.
void edit_Click(Engine& engine, Deck& deck);
/// A row was selected: starts its effect.
void efxList_Click(Engine& engine, Deck& deck);

}  // namespace korvane
