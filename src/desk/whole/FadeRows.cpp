#include "desk/whole/FadeRows.h"

#include <functional>
#include <string>
#include <utility>

#include "playback/FadeList.h"

namespace korvane {
namespace {

/// While it lives, another fade may be the selected one, and what shows it is not heard; then the
/// one that was it is so again.
class OtherFade {
 public:
  OtherFade(Engine& engine, std::int16_t slot)
      : engine_(engine),
        slot_(engine.v.selX),
        type_(master().fadeType.index()),
        time_(master().fadeTimeText.text()),
        name_(master().fadeName.text()),
        color_(master().MFadeColor.backColor()),
        typeClick_(std::exchange(master().fadeType.onClick, nullptr)),
        timeChange_(std::exchange(master().fadeTimeText.onChange, nullptr)),
        nameChange_(std::exchange(master().fadeName.onChange, nullptr)) {
    select(slot);
  }
  ~OtherFade() {
    select(slot_);
    master().fadeType.setIndex(type_);
    master().fadeTimeText.setText(time_);
    master().fadeName.setText(name_);
    master().MFadeColor.setBackColor(color_);
    master().fadeType.onClick = std::move(typeClick_);
    master().fadeTimeText.onChange = std::move(timeChange_);
    master().fadeName.onChange = std::move(nameChange_);
  }
  OtherFade(const OtherFade&) = delete;
  OtherFade& operator=(const OtherFade&) = delete;

 private:
  Master& master() const { return engine_.master; }
  void select(std::int16_t slot) const {
    master().efxXList.select(rowOfSlot(master().efxXList, slot));
    engine_.v.selX = slot;
  }

  Engine& engine_;
  std::int16_t slot_;
  int type_;
  std::string time_, name_;
  Color color_;
  std::function<void()> typeClick_, timeChange_, nameChange_;
};

}  // namespace

FadeRows::FadeRows(DeskSession& session)
    : session_(session), engine_(session.plugin.engine), list_(engine_.master.efxXList) {
  bind();
}

void FadeRows::bind() {
  const auto act = [this](auto what) {
    return [this, what](const std::vector<int>& rows) { what(slotsAt(list_, rows)); };
  };
  list_.actions = {
      {"Rename", "F2", [this](const std::vector<int>& rows) { list_.beginEdit(rows.front(), 0); }},
      {"Duplicate", "Ctrl+D",
       act([this](const RowSlots& slots) { copy(slots, rowOfSlot(list_, slots.back()) + 1); })},
      {"Remove", "Del", act([this](const RowSlots& slots) { remove(slots); })},
  };
  list_.takesRowsOf = [this](const ListView& from) { return &from == &list_; };
  list_.onDrop = [this](const ListView::Drop& drop) {
    const RowSlots slots = slotsAt(list_, drop.rows);
    if (drop.copy) return copy(slots, drop.before);
    moveSlots(list_, slots, drop.before,
              [this](std::int16_t slot, int place) { moveTo(slot, place); });
  };
  list_.onEdited = [this](int row, int) { rename(row); };
}

// The warning of many that are gone is told once. The selected one goes last, as its button does
// it.
void FadeRows::remove(const RowSlots& slots) {
  const std::int16_t selected = engine_.v.selX;
  for (auto slot = slots.rbegin(); slot != slots.rend(); ++slot) {
    if (*slot == selected) continue;
    const auto one = [&] {
      const OtherFade other(engine_, *slot);
      removeX_Click(engine_);
    };
    slot + 1 == slots.rend() ? one() : session_.platform.quietly(one);
  }
  if (!contains(slots, selected)) return;
  list_.select(rowOfSlot(list_, selected));
  removeX_Click(engine_);
}

void FadeRows::copy(const RowSlots& slots, int before) {
  std::vector<FadeEntry>& fades = engine_.v.efxX;
  for (const std::int16_t slot : slots) {
    const int count = list_.count();
    addX_Click(engine_);
    if (list_.count() == count) break;  // there is no room, and that was told
    const std::int16_t fresh = slotAt(list_, count);
    fades.at(static_cast<std::size_t>(fresh)) = fades.at(static_cast<std::size_t>(slot));
    list_.setCell(count, 0, fades.at(static_cast<std::size_t>(slot)).name);
    moveTo(fresh, before++);
  }
}

// By as many presses as it takes.
void FadeRows::moveTo(std::int16_t slot, int place) {
  const OtherFade other(engine_, slot);
  while (list_.current() < place) downX_Click(engine_);
  while (list_.current() > place) upX_Click(engine_);
}

// As the field of the name does it.
void FadeRows::rename(int row) {
  const std::int16_t slot = slotAt(list_, row);
  const std::string name = list_.cell(row, 0);
  engine_.v.efxX.at(static_cast<std::size_t>(slot)).name = name;
  if (slot == engine_.v.selX) engine_.master.fadeName.setText(name);
}

}  // namespace korvane
