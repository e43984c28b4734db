#include "desk/windows/CueFields.h"

#include <algorithm>
#include <cmath>

#include "platform/Text.h"

namespace korvane {
namespace {}  // namespace

std::string plainNumber(double number) { return formatGeneral(number, {}); }

std::string rowText(const RowRef& row, bool there) {
  if (row.leaves()) return "";
  return there ? row.name : "lost: " + row.name;
}

std::string endText(const Cue& cue) {
  switch (cue.end) {
    case Cue::End::Seconds:
      return plainNumber(cue.after) + " s";
    case Cue::End::Beats:
      return plainNumber(cue.after) + (cue.after == 1 ? " beat" : " beats");
    case Cue::End::FadeDone:
      return "fade done";
    default:
      return "by hand";
  }
}

CueFields::CueFields()
    : name("cueName", {.toolTip = "name of the cue", .label = "Name : "}, "", kTakenAtTheEnd),
      left("cueLeft", {.toolTip = "effect of the left deck", .label = "Left : "}),
      right("cueRight", {.toolTip = "effect of the right deck", .label = "Right : "}),
      move("cueMove", {.toolTip = "what the master fader does", .label = "Fader : "}),
      fade("cueFade", {.toolTip = "the fade, with its time", .label = "Fade : "}),
      master("cueMaster",
             {.toolTip = "grand master in percent; empty leaves it", .label = "Master : "}, "",
             kTakenAtTheEnd),
      end("cueEnd", {.toolTip = "when the next cue follows", .label = "Ends : "}),
      after("cueAfter", {.toolTip = "so many seconds or beats", .label = "After : "}, "",
            kTakenAtTheEnd) {
  move.setItems({"leave as it is", "fade to the left", "fade to the right", "cut to the left",
                 "cut to the right"});
  end.setItems({"by hand", "after seconds", "after beats", "when the fade is done"});
  bind();
}

std::vector<Control*> CueFields::controls() {
  return {&name, &left, &right, &move, &fade, &master, &end, &after};
}

Layout CueFields::layout() {
  return korvane::fields({name, left, right, move, fade, master, end, after});
}

void CueFields::bind() {
  for (Control* control : controls()) {
    if (auto* box = dynamic_cast<ListBox*>(control)) box->onClick = [this] { changed(); };
    if (auto* box = dynamic_cast<TextBox*>(control)) box->onChange = [this] { changed(); };
  }
}

ListBox& CueFields::boxOf(ShowList list) {
  if (list == ShowList::Fades) return fade;
  return list == ShowList::Left ? left : right;
}

// First "leave", then the rows, then a row that is gone.
void CueFields::showRow(ShowList list, const RowRef& row, const ShowStage& stage) {
  std::vector<ShowStage::Row>& rows = rows_[static_cast<std::size_t>(list)];
  rows = stage.rows(list);
  std::vector<std::string> items = {list == ShowList::Fades ? "the selected one"
                                                            : "leave as it is"};
  int index = 0;
  for (const ShowStage::Row& one : rows) {
    if (!row.leaves() && one.slot == row.slot) index = static_cast<int>(items.size());
    items.push_back(one.name);
  }
  if (!row.leaves() && index == 0) {
    index = static_cast<int>(items.size());
    items.push_back("lost: " + row.name);
  }
  ListBox& box = boxOf(list);
  if (box.items() != items) box.setItems(items);
  box.setIndex(index);
}

void CueFields::show(const Cue* cue, const ShowStage& stage) {
  filling_ = true;
  cue_ = cue == nullptr ? Cue{} : *cue;
  for (Control* control : controls()) {
    if (control->look().enabled != (cue != nullptr)) control->setEnabled(cue != nullptr);
  }
  name.setText(cue_.name);
  for (const ShowList list : kShowLists) showRow(list, cue_.row(list), stage);
  move.setIndex(static_cast<int>(cue_.move));
  master.setText(cue_.master ? std::to_string(*cue_.master) : "");
  end.setIndex(static_cast<int>(cue_.end));
  after.setText(plainNumber(cue_.after));
  const bool timed = cue_.end == Cue::End::Seconds || cue_.end == Cue::End::Beats;
  if (after.look().enabled != (cue != nullptr && timed)) after.setEnabled(cue != nullptr && timed);
  if (fade.look().enabled != (cue != nullptr && cue_.fades()))
    fade.setEnabled(cue != nullptr && cue_.fades());
  filling_ = false;
}

// A row that is gone stays what it is.
void CueFields::takeRow(ShowList list) {
  const std::vector<ShowStage::Row>& rows = rows_[static_cast<std::size_t>(list)];
  const int index = boxOf(list).index();
  RowRef& row = cue_.row(list);
  if (index <= 0) {
    row = {};
  } else if (std::cmp_less_equal(index, rows.size())) {
    const ShowStage::Row& chosen = rows[static_cast<std::size_t>(index - 1)];
    row = {chosen.slot, chosen.name};
  }
}

bool CueFields::takeNumbers() {
  const std::optional<double> percent = parseEitherDecimal(master.text());
  const bool leaves = master.text().find_first_not_of(' ') == std::string::npos;
  if (!leaves && (!percent || *percent < 0 || *percent > 100)) {
    if (onWrong) onWrong("The grand master of a cue is 0 to 100 percent, or nothing.");
    return false;
  }
  cue_.master.reset();
  if (!leaves) cue_.master = static_cast<int>(std::lround(*percent));
  const bool beats = cue_.end == Cue::End::Beats;
  const std::optional<double> time = parseEitherDecimal(after.text());
  if (!time || *time < (beats ? 1 : kShortestCue) || *time > (beats ? kMostBeats : kLongestCue)) {
    if (onWrong)
      onWrong(beats ? "A cue ends after 1 to 10000 beats."
                    : "A cue ends after 0.1 to 86400 seconds.");
    return false;
  }
  cue_.after = beats ? std::floor(*time) : *time;
  return true;
}

void CueFields::changed() {
  if (filling_) return;
  const Cue before = cue_;
  cue_.name = name.text();
  for (const ShowList list : kShowLists) takeRow(list);
  cue_.move = static_cast<Cue::Move>(std::max(move.index(), 0));
  cue_.end = static_cast<Cue::End>(std::max(end.index(), 0));
  if (!takeNumbers()) cue_ = before;
  if (onChange) onChange(cue_);
}

}  // namespace korvane
