#include "playback/EffectLists.h"

#include <cstddef>

#include "generators/Effects.h"
#include "generators/color/ColorCode.h"
#include "output/Preview.h"
#include "platform/Numbers.h"
#include "playback/DeckPlayback.h"
#include "playback/EffectStart.h"
#include "playback/ListRows.h"

namespace korvane {
namespace {

Boolean& editedFlag(Deck& deck) {
  deck.effect();  // the slot must exist
  return deck.efxEdited.at(static_cast<std::size_t>(deck.sel));
}

// The row that shows a slot; -1 for none.
int rowOfSlot(const ListView& list, std::int16_t slot) {
  for (int row = 0; row < list.count(); ++row) {
    if (list.cell(row, kSlotColumn) == std::to_string(slot)) return row;
  }
  return -1;
}

void commitOpenDialogs(const Engine& engine) {
  for (const EffectKind* kind : kinds()) {
    EffectDialog* dialog = dialogOf(engine, *kind);
    if (dialog != nullptr && kind->onEdit == OnEdit::CommittedFirst) dialog->commit();
  }
}

}  // namespace

void add_Click(Engine& engine, Deck& deck) {
  if (!roomForRow(engine, deck.efxCount)) return;
  const std::int16_t slot = nextSlot(deck.efxCount, deck.efxDeleted);
  const auto at = static_cast<std::size_t>(slot);
  deck.efx.resize(at + 2);
  deck.efxEdited.resize(at + 2);
  deck.efxEdited[at] = false;
  Effect& effect = deck.efx[at];
  effect = {};  // a load that failed may have left half a record here
  addRow(deck.efxList, "new effect", slot);
  ++deck.efxCount;
  if (deck.efxCount == 1) deck.sel = slot;  // the row that is selected
  effect.name = "new effect";
  effect.type = kColor;
  effect.color1 = deck.isB() ? engine.v.colorBlue : engine.v.colorRed;
}

void remove_Click(Engine& engine, Deck& deck) {
  if (removeRow(deck.efxList)) {
    // The next effect may fail to start; the row is gone all the same.
    --deck.efxCount;
    deck.efxDeleted = add16(deck.efxDeleted, 1);
    deck.sel = slotOfCurrent(deck.efxList);
    deck.type.setIndex(deck.effect().type);
  }
  warnOfDeleted(engine);
}

void up_Click(Engine&, Deck& deck) { moveRow(deck.efxList, -1); }

void down_Click(Engine&, Deck& deck) { moveRow(deck.efxList, 1); }

void clear_Click(Engine& engine, Deck& deck) {
  stopDeck(deck);
  editedFlag(deck) = false;
  deck.type.setIndex(kColor);
  fillFrame(engine, deck, {0, 0, 0});
  drawMatrix(engine, deck);
  mixAndDraw(engine);
}

void copyMem_Click(Engine& engine, Deck& deck) {
  const Effect& effect = deck.effect();
  Variablen& v = engine.v;
  v.efxClipboard.name = effect.name;
  v.efxClipboard.type = effect.type;
  copyEffectFields(effect, v.efxClipboard, &v);
  // Copying on the right deck marks the source as edited, on the left it doesn't
  // (docs/kept.md, deck-copy).
  if (deck.isB()) editedFlag(deck) = true;
}

void pasteRecord(Engine& engine, Deck& deck) {
  Effect& effect = deck.effect();
  effect.name = engine.v.efxClipboard.name;
  effect.type = engine.v.efxClipboard.type;
  const int row = rowOfSlot(deck.efxList, deck.sel);
  if (row >= 0) deck.efxList.setCell(row, 0, effect.name);
  copyEffectFields(engine.v.efxClipboard, effect);
  // The grid may have changed since the picture was copied.
  if (effect.type == kPaint)
    effect.paintPixels.resizeKeeping(engine.v.matrixCols, engine.v.matrixRows);
  editedFlag(deck) = true;
}

void pasteMem_Click(Engine& engine, Deck& deck) {
  stopDeck(deck);
  pasteRecord(engine, deck);
  efxList_Click(engine, deck);
}

// A slot that is not there is left to the failure of the handler that follows.
void type_Chosen(Deck& deck) {
  const auto slot = static_cast<std::size_t>(deck.sel);
  if (slot < deck.efxEdited.size()) deck.efxEdited[slot] = true;
}

void type_Click(Engine& engine, Deck& deck) {
  stopDeck(deck);
  engine.v.editDeck = deck.isB() ? 1 : 0;
  const std::int16_t type = toInt16(deck.type.index());
  Effect& effect = deck.effect();
  const bool changed = effect.type != type;
  if (changed) setTypeDefaults(engine, deck, type);
  effect.type = type;
  startEffect(engine, deck, type, changed ? StartCause::TypeChanged : StartCause::TypeChosen);
}

void edit_Click(Engine& engine, Deck& deck) {
  // Only the right deck keeps a copy for Cancel; the left one's backup stays as it was
  // (docs/kept.md, deck-cancel).
  if (deck.isB()) deck.efxBackup = deck.effect();
  commitOpenDialogs(engine);
  engine.v.editDeck = deck.isB() ? 1 : 0;
  Effect& effect = deck.effect();
  const std::int16_t type = toInt16(deck.type.index());
  effect.type = type;
  const EffectKind* kind = kindOf(type);
  EffectDialog* dialog = kind == nullptr ? nullptr : dialogOf(engine, *kind);
  if (dialog != nullptr) dialog->open();
}

void efxList_Click(Engine& engine, Deck& deck) {
  stopDeck(deck);
  deck.sel = slotOfCurrent(deck.efxList);
  const std::int16_t type = deck.effect().type;
  // An entry that the list has not is left to the message of the start.
  if (kindOf(type) != nullptr) deck.type.setIndex(type);
  startEffect(engine, deck, type, StartCause::RowSelected);
}

}  // namespace korvane
