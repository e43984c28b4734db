#include "platform/ListView.h"

#include <algorithm>
#include <utility>

#include "platform/Failure.h"
#include "platform/Keys.h"
#include "platform/Text.h"

namespace korvane {
namespace {

constexpr std::int64_t kOneWord = 1000;  // ms between two letters of it, at most

}  // namespace

void ListView::setColumns(std::vector<Column> columns) {
  columns_ = std::move(columns);
  shown();
}

ListView::Row& ListView::at(int index) {
  if (index < 0 || index >= count()) {
    throw Failure(kSubscript, name() + " has no row " + std::to_string(index));
  }
  return rows_[static_cast<std::size_t>(index)];
}

const ListView::Row& ListView::row(int index) const {
  return const_cast<ListView*>(this)->at(index);
}

std::string ListView::cell(int row, int col) const {
  const Row& found = this->row(row);
  if (col == 0) return found.text;
  const auto sub = static_cast<std::size_t>(col - 1);
  return sub < found.sub.size() ? found.sub[sub] : std::string();
}

void ListView::add(std::string text, std::vector<std::string> sub, Color color) {
  rows_.push_back({std::move(text), std::move(sub), color, false});
  if (current_ < 0) current_ = 0;
  shown();
}

void ListView::setRows(std::vector<Row> rows) {
  if (rows == rows_) return;
  if (rows.size() != rows_.size()) gathered_.clear();
  rows_ = std::move(rows);
  current_ = rows_.empty() ? -1 : std::clamp(current_, 0, count() - 1);
  if (editRow_ >= count()) editRow_ = -1;
  shown();
}

void ListView::setPictures(std::function<const Raster*(int row)> picture) {
  picture_ = std::move(picture);
  shown();
}

void ListView::center(int row) {
  if (row == centered_) return;
  centered_ = row;
  shown();
}

void ListView::setCell(int row, int col, std::string text) {
  Row& target = at(row);
  if (col < 0) throw Failure(kSubscript, name() + " has no column " + std::to_string(col));
  if (col == 0) {
    target.text = std::move(text);
  } else {
    const auto sub = static_cast<std::size_t>(col - 1);
    if (target.sub.size() <= sub) target.sub.resize(sub + 1);
    target.sub[sub] = std::move(text);
  }
  shown();
}

void ListView::remove(int index) {
  at(index);
  rows_.erase(rows_.begin() + index);
  gathered_.clear();
  if (current_ > index || current_ >= count()) --current_;
  editRow_ = -1;
  shown();
}

void ListView::clear() {
  rows_.clear();
  gathered_.clear();
  current_ = -1;
  editRow_ = -1;
  shown();
}

int ListView::selected() const {
  const auto marked =
      std::find_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.selected; });
  return marked == rows_.end() ? -1 : static_cast<int>(marked - rows_.begin());
}

void ListView::select(int index) {
  at(index);
  for (Row& row : rows_) row.selected = false;
  at(index).selected = true;
  gathered_.clear();
  current_ = index;
  shown();
}

void ListView::unselectAll() {
  for (Row& row : rows_) row.selected = false;
  shown();
}

void ListView::click(int row, int col) {
  at(row);
  run(beforeClick, row);
  select(row);
  run(onClick, row, col);
}

void ListView::doubleClick(int row) {
  at(row);
  run(onDoubleClick, row);
}

void ListView::exchange(int row, int other) {
  std::swap(at(row), at(other));
  std::swap(at(row).selected, at(other).selected);
  shown();
}

void ListView::clickGathering(int row, int col) {
  at(row);
  if (actions.empty()) return click(row, col);
  if (gathered_.empty() && current_ >= 0) gathered_ = {current_};
  const auto place = std::lower_bound(gathered_.begin(), gathered_.end(), row);
  if (place != gathered_.end() && *place == row)
    gathered_.erase(place);
  else
    gathered_.insert(place, row);
  shown();
}

void ListView::clickRange(int row, int col) {
  at(row);
  if (actions.empty()) return click(row, col);
  gathered_.clear();
  const int from = std::max(current_, 0);
  for (int i = std::min(from, row); i <= std::max(from, row); ++i) gathered_.push_back(i);
  shown();
}

bool ListView::isGathered(int row) const {
  return std::binary_search(gathered_.begin(), gathered_.end(), row);
}

std::vector<int> ListView::rowsFor(int row) const {
  return isGathered(row) ? gathered_ : std::vector<int>{row};
}

const ListView::Action* ListView::actionOf(const std::string& key) const {
  if (key.empty()) return nullptr;  // Control alone has no name, and not every action has a key
  const auto found = std::find_if(actions.begin(), actions.end(),
                                  [&key](const Action& action) { return action.key == key; });
  return found == actions.end() ? nullptr : &*found;
}

int ListView::firstNamed(const std::string& beginning) const {
  for (int row = 0; row < count(); ++row) {
    if (lowerCase(nameOf(row)).starts_with(lowerCase(beginning))) return row;
  }
  return -1;
}

void ListView::typed(const std::string& letter, std::int64_t at) {
  const bool goesOn = !typed_.empty() && at - typedAt_ <= kOneWord;
  typed_ = goesOn ? typed_ + letter : letter;
  typedAt_ = at;
  reach(firstNamed(typed_));
}

bool ListView::takesKey(int key) { return key == kEditKey || key == kSpaceKey || key == kEnterKey; }

void ListView::key(int key) {
  if (current_ < 0) return;
  if (key == kEditKey) editCurrent();
  if (key == kSpaceKey) click(current_, 0);
  if (key == kEnterKey) doubleClick(current_);
}

void ListView::reach(int row) {
  if (row >= 0 && row < count() && row != current_) click(row, 0);
}

void ListView::editCurrent() {
  const auto editable = std::find_if(columns_.begin(), columns_.end(),
                                     [](const Column& column) { return column.editable; });
  if (editable != columns_.end())
    beginEdit(current_, static_cast<int>(editable - columns_.begin()));
}

bool ListView::editable() const {
  return std::any_of(columns_.begin(), columns_.end(),
                     [](const Column& column) { return column.editable; });
}

bool ListView::beginEdit(int row, int col) {
  at(row);
  if (col < 0 || col >= static_cast<int>(columns_.size())) return false;
  if (!columns_[static_cast<std::size_t>(col)].editable) return false;
  editRow_ = row;
  editCol_ = col;
  shown();
  return true;
}

void ListView::endEdit(const std::string& typed) {
  if (!editing()) return;
  const int row = editRow_;
  const int col = editCol_;
  editRow_ = -1;
  const std::string valid = onValidate ? onValidate(col, typed) : typed;
  setCell(row, col, onAfterEdit ? onAfterEdit(col, cell(row, col), valid) : valid);
  run(onEdited, row, col);
}

}  // namespace korvane
