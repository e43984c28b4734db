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
/// A person chose a type, perhaps the one that the effect has: it has content to save from now on.
void type_Chosen(Deck& deck);
/// The type list got another entry.
void type_Click(Engine& engine, Deck& deck);
/// Opens the dialog of the selected effect.
void edit_Click(Engine& engine, Deck& deck);
/// A row was selected: starts its effect.
void efxList_Click(Engine& engine, Deck& deck);

inline void addA_Click(Engine& engine) { add_Click(engine, engine.v.A); }
inline void addB_Click(Engine& engine) { add_Click(engine, engine.v.B); }
inline void removeA_Click(Engine& engine) { remove_Click(engine, engine.v.A); }
inline void removeB_Click(Engine& engine) { remove_Click(engine, engine.v.B); }
inline void upA_Click(Engine& engine) { up_Click(engine, engine.v.A); }
inline void upB_Click(Engine& engine) { up_Click(engine, engine.v.B); }
inline void downA_Click(Engine& engine) { down_Click(engine, engine.v.A); }
inline void downB_Click(Engine& engine) { down_Click(engine, engine.v.B); }
inline void clearA_Click(Engine& engine) { clear_Click(engine, engine.v.A); }
inline void clearB_Click(Engine& engine) { clear_Click(engine, engine.v.B); }
inline void copyMemA_Click(Engine& engine) { copyMem_Click(engine, engine.v.A); }
inline void copyMemB_Click(Engine& engine) { copyMem_Click(engine, engine.v.B); }
inline void pasteMemA_Click(Engine& engine) { pasteMem_Click(engine, engine.v.A); }
inline void pasteMemB_Click(Engine& engine) { pasteMem_Click(engine, engine.v.B); }
inline void typeA_Click(Engine& engine) { type_Click(engine, engine.v.A); }
inline void typeB_Click(Engine& engine) { type_Click(engine, engine.v.B); }
inline void editA_Click(Engine& engine) { edit_Click(engine, engine.v.A); }
inline void editB_Click(Engine& engine) { edit_Click(engine, engine.v.B); }
inline void efxAList_Click(Engine& engine) { efxList_Click(engine, engine.v.A); }
inline void efxBList_Click(Engine& engine) { efxList_Click(engine, engine.v.B); }

}  // namespace korvane
