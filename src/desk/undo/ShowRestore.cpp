#include "desk/undo/ShowRestore.h"

#include <algorithm>
#include <optional>

#include "generators/Effects.h"
#include "output/Preview.h"
#include "persistence/MatrixDefinition.h"
#include "platform/Events.h"
#include "playback/EffectLists.h"
#include "playback/FadeList.h"
#include "playback/ListRows.h"

namespace korvane {
namespace {

int rowOfSlot(const std::vector<RowState>& rows, std::int16_t slot) {
  const auto found = std::ranges::find(rows, slot, &RowState::slot);
  return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

// The row of the slot is selected if the list still has it, else the one at the old place.
void putRows(ListView& list, const std::vector<RowState>& rows, std::int16_t slot) {
  if (listRows(list) == rows) return;
  const int place = list.current();
  list.clear();
  for (const RowState& row : rows) list.add(row.text, {std::to_string(row.slot)});
  if (rows.empty()) return;
  const int row = rowOfSlot(rows, slot);
  list.select(row >= 0 ? row : std::clamp(place, 0, list.count() - 1));
}

void putContents(Deck& deck, const DeckState& state) {
  deck.efx.resize(state.slots.size());
  for (std::size_t i = 0; i < state.slots.size(); ++i) {
    if (!alike(deck.efx[i], *state.slots[i])) deck.efx[i] = *state.slots[i];
  }
  deck.efxEdited = state.edited;
  deck.efxCount = state.count;
  deck.efxDeleted = state.deleted;
  deck.savedFadeMode = state.chosenFadeMode;
  putRows(deck.efxList, state.rows, deck.sel);
}

void putContents(Engine& engine, const FadesState& state) {
  Variablen& v = engine.v;
  v.efxX = state.slots;
  v.efxXCount = state.count;
  v.efxXDeleted = state.deleted;
  putRows(engine.master.efxXList, state.rows, v.selX);
}

/// What becomes of the effect that a deck plays.
enum class Playing { GoesOn, StartsAnew, GoesDark };

Playing playing(const Deck& deck, const DeckState& now, const DeckState& to) {
  const auto slot = static_cast<std::size_t>(deck.sel);
  if (rowOfSlot(to.rows, deck.sel) < 0 || slot >= now.slots.size() || slot >= to.slots.size())
    return Playing::StartsAnew;
  if (now.slots[slot] != to.slots[slot]) return Playing::StartsAnew;
  if (now.edited.at(slot) == to.edited.at(slot)) return Playing::GoesOn;
  return to.edited.at(slot) ? Playing::StartsAnew : Playing::GoesDark;
}

/// The dialog that was open for the deck under edit is put away, with nothing taken of what it
/// holds, and shown again once the effect is as it is to be.
class OpenDialog {
 public:
  explicit OpenDialog(Plugin& plugin) : plugin_(plugin) {
    Engine& engine = plugin.engine;
    editDeck_ = engine.v.editDeck;
    slot_ = engine.editedDeck().sel;
    for (const auto& dialog : plugin.dialogs.byType) {
      if (dialog->visible()) open_ = dialog.get();
      engine.desktop.hide(*dialog);
      for (const DialogWindow& window : dialog->windows()) engine.desktop.hide(window.form);
    }
  }
  void showAgain() {
    Engine& engine = plugin_.engine;
    engine.v.editDeck = editDeck_;
    const Deck& deck = engine.editedDeck();
    const auto slot = static_cast<std::size_t>(deck.sel);
    if (open_ == nullptr || deck.sel != slot_ || slot >= deck.efx.size()) return;
    const EffectKind* kind = kindOf(deck.efx[slot].type);
    if (kind == nullptr || dialogOf(engine, *kind) != open_) return;
    runEvent(engine.platform, [this] { open_->open(); });
  }

 private:
  Plugin& plugin_;
  EffectDialog* open_ = nullptr;
  std::int16_t editDeck_ = 0;
  std::int16_t slot_ = 0;
};

void putGrid(Plugin& plugin, const GridState& to) {
  Engine& engine = plugin.engine;
  Variablen& v = engine.v;
  const bool size = v.matrix.cols != to.matrix.cols || v.matrix.rows != to.matrix.rows;
  v.matrix.cols = to.matrix.cols;
  v.matrix.rows = to.matrix.rows;
  if (size)
    dimensionMatrix(engine);
  else
    v.frameSent.redim(v.matrixCols, v.matrixRows);  // the new channels hold nothing yet
  v.matrix = to.matrix;
  v.matrixConfigured = to.configured;
  v.quickConfigured = to.quick;
  v.matrixName = to.name;
  plugin.matrixConf.MName.setText(to.shownName);
  if (size) fitPictures(engine);
}

void play(Engine& engine, Deck& deck, Playing how) {
  if (how == Playing::GoesOn || engine.mainWindow == nullptr || !engine.mainWindow->visible())
    return;
  runEvent(engine.platform, [&] {
    how == Playing::GoesDark ? clear_Click(engine, deck) : efxList_Click(engine, deck);
  });
}

bool fadeDiffers(const Variablen& v, const FadesState& now, const FadesState& to) {
  const auto slot = static_cast<std::size_t>(v.selX);
  return rowOfSlot(to.rows, v.selX) < 0 || slot >= now.slots.size() || slot >= to.slots.size() ||
         !alike(now.slots[slot], to.slots[slot]);
}

}  // namespace

void restoreShow(Plugin& plugin, const ShowState& now, const ShowState& to,
                 const std::function<void()>& gridChanged) {
  Engine& engine = plugin.engine;
  Variablen& v = engine.v;
  const std::array<Deck*, 2> decks = {&v.A, &v.B};
  std::array<Playing, 2> how{};
  const bool otherGrid = now.grid != to.grid;
  for (std::size_t i = 0; i < decks.size(); ++i)
    how[i] = otherGrid ? Playing::StartsAnew : playing(*decks[i], *now.decks[i], *to.decks[i]);
  const bool fade = now.fades != to.fades && fadeDiffers(v, *now.fades, *to.fades);
  std::optional<OpenDialog> dialog;
  if (std::ranges::any_of(how, [](Playing one) { return one != Playing::GoesOn; }))
    dialog.emplace(plugin);

  const auto putAll = [&] {
    for (std::size_t i = 0; i < decks.size(); ++i) putContents(*decks[i], *to.decks[i]);
    putContents(engine, *to.fades);
  };
  if (otherGrid) putGrid(plugin, *to.grid);
  putAll();
  if (otherGrid && gridChanged) gridChanged();
  for (std::size_t i = 0; i < decks.size(); ++i) play(engine, *decks[i], how[i]);
  if (fade) runEvent(engine.platform, [&engine] { efxXList_Click(engine); });
  if (dialog) dialog->showAgain();
  putAll();  // a start, a dialog or a field may have written what it makes of an odd value
}

}  // namespace korvane
