#include "windows/DeckPanel.h"

#include "playback/DeckPlayback.h"
#include "playback/EffectLists.h"

namespace korvane {

DeckPanel::DeckPanel(Engine& engine, Deck& deck)
    : frame(deck.named("Frame"), {.caption = deck.isB() ? "Right Effect" : "Left Effect"}),
      add(deck.named("add"), Icon::Add, {.toolTip = "add an effect"}),
      remove(deck.named("remove"), Icon::Remove, {.toolTip = "remove the selected effect"}),
      up(deck.named("up"), Icon::Up, {.toolTip = "move the selected effect up"}),
      down(deck.named("down"), Icon::Down, {.toolTip = "move the selected effect down"}),
      edit(deck.named("edit"),
           {.caption = deck.isB() ? "Edit ..." : "Edit", .toolTip = "edit the selected effect"}),
      clear(deck.named("clear"), {.caption = "Clear", .toolTip = "blank the selected effect"}),
      copyMem(deck.named("copyMem"), Icon::Copy,
              {.toolTip = "Copy selected memory effect to clipboard"}),
      pasteMem(deck.named("pasteMem"), Icon::Paste,
               {.toolTip = "Paste effect from clipboard on selected memory"}),
      engine_(engine),
      deck_(deck) {
  bind();
}

void DeckPanel::bind() {
  add.onClick = [this] { add_Click(engine_, deck_); };
  remove.onClick = [this] { remove_Click(engine_, deck_); };
  up.onClick = [this] { up_Click(engine_, deck_); };
  down.onClick = [this] { down_Click(engine_, deck_); };
  edit.onClick = [this] { edit_Click(engine_, deck_); };
  clear.onClick = [this] { clear_Click(engine_, deck_); };
  copyMem.onClick = [this] { copyMem_Click(engine_, deck_); };
  pasteMem.onClick = [this] { pasteMem_Click(engine_, deck_); };
  deck_.type.onChosen = [this] { type_Chosen(deck_); };
  deck_.type.onClick = [this] { type_Click(engine_, deck_); };
  deck_.efxList.onClick = [this](int, int) { efxList_Click(engine_, deck_); };
  deck_.efxList.onDoubleClick = [this](int) { edit_Click(engine_, deck_); };
  deck_.timer1.onTimer = [this] { timer1_Timer(engine_, deck_); };
  deck_.timer2.onTimer = [this] { timer2_Timer(engine_, deck_); };
}

std::vector<Control*> DeckPanel::controls() {
  return {&frame, &deck_.efxList, &deck_.type, &edit,  &add,           &remove,     &up,
          &down,  &copyMem,       &pasteMem,   &clear, &deck_.picture, &deck_.mini, &deck_.image};
}

Layout DeckPanel::layout() {
  return boxed(frame,
               column({Layout(deck_.picture, 1), row({Layout(deck_.type, 1), edit}),
                       Layout(deck_.efxList, 1),
                       row({add, remove, up, down, space(), copyMem, pasteMem, clear})}),
               1);
}

}  // namespace korvane
