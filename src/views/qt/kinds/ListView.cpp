#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTreeView>
#include <algorithm>

#include "views/qt/kinds/Binder.h"
#include "views/qt/kinds/CellDelegate.h"
#include "views/qt/kinds/ListModel.h"

namespace korvane::qt {
namespace {

constexpr QSize kSize{220, 160};
constexpr int kColumnWidth = 190;  // of one among several
constexpr QSize kLeastSize{140, 96};
constexpr auto kHeld = Qt::ControlModifier | Qt::AltModifier;

class RowList : public QTreeView {
 public:
  RowList(ListView& list, const Seat& seat);

  void refresh();
  void reset() override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return kLeastSize; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent*) override {}  // dragging marks no rows
  void mouseReleaseEvent(QMouseEvent*) override {}
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

 private:
  void shareWidth();
  void showCurrentRow();
  void showCenteredRow();
  void showEditor();
  void perform(const ListView::Action& action);

  ListView& list_;
  Seat seat_;
  ListModel model_;
  int centered_ = -1;  // as it was brought to the middle last
  bool editorOpen_ = false;
};

RowList::RowList(ListView& list, const Seat& seat)
    : QTreeView(seat.parent), list_(list), seat_(seat), model_(list, this) {
  setModel(&model_);
  setItemDelegate(new CellDelegate(list, seat.gate, this));
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  header()->setSectionsClickable(false);
  header()->setSectionsMovable(false);
  header()->setStretchLastSection(true);
  header()->setMinimumSectionSize(0);
  header()->setSectionResizeMode(QHeaderView::Fixed);
}

void RowList::refresh() {
  const int columns = header()->count();
  model_.refresh();
  if (columns != header()->count()) shareWidth();
  showCurrentRow();
  showCenteredRow();
  showEditor();
}

// Open editors go with the old rows.
void RowList::reset() {
  editorOpen_ = false;
  QTreeView::reset();
}

// The row with the focus and the mark of selection are two things: the mark can be absent.
void RowList::showCurrentRow() {
  const QModelIndex current = model_.index(list_.current(), 0);
  const QModelIndex marked = model_.index(list_.selected(), 0);
  QItemSelectionModel& selection = *selectionModel();
  if (selection.currentIndex().row() != current.row()) {
    selection.setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    if (current.isValid()) scrollTo(current);
  }
  selection.select(marked, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void RowList::showCenteredRow() {
  const QModelIndex middle = model_.index(list_.centered(), 0);
  if (centered_ == middle.row() || !middle.isValid()) return;
  centered_ = middle.row();
  scrollTo(middle, PositionAtCenter);
}

void RowList::showEditor() {
  if (!list_.editing() || editorOpen_) return;
  editorOpen_ = true;
  edit(model_.index(list_.editRow(), list_.editCol()));
}

// The editor is gone, whether its text was taken or not.
void RowList::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  editorOpen_ = false;
  QTreeView::closeEditor(editor, hint);
  if (list_.editing()) act(seat_, list_, [this] { list_.cancelEdit(); });
}

QSize RowList::sizeHint() const {
  const int shown = header()->count() - header()->hiddenSectionCount();
  return {std::max(kSize.width(), shown < 2 ? 0 : shown * kColumnWidth), kSize.height()};
}

void RowList::shareWidth() {
  const std::vector<ListView::Column>& columns = list_.columns();
  for (int i = 0; i < header()->count(); ++i) {
    const double share = columns[static_cast<std::size_t>(i)].width;
    setColumnHidden(i, share <= 0);
    if (share > 0) setColumnWidth(i, static_cast<int>(share * viewport()->width()));
  }
}

void RowList::resizeEvent(QResizeEvent* event) {
  QTreeView::resizeEvent(event);
  shareWidth();
  centered_ = -1;
  showCenteredRow();
}

void RowList::mousePressEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->pos());
  if (event->button() != Qt::LeftButton || !index.isValid()) return;
  act(seat_, list_, [&] { list_.click(index.row(), index.column()); });
}

void RowList::mouseDoubleClickEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->pos());
  if (event->button() != Qt::LeftButton || !index.isValid()) return;
  act(seat_, list_, [this, row = index.row()] { list_.doubleClick(row); });
}

void RowList::keyPressEvent(QKeyEvent* event) {
  if (editorOpen_) return;  // keys that the editor leaves over
  const int key = keyCode(event->key());
  if (ListView::takesKey(key)) return act(seat_, list_, [this, key] { list_.key(key); });
  const std::string name = keyName(*event);
  if (const ListView::Action* action = list_.actionOf(name)) return perform(*action);
  if (!event->text().isEmpty() && event->text().at(0).isPrint() && !(event->modifiers() & kHeld))
    return act(seat_, list_, [this, event] {
      list_.typed(event->text().toStdString(), static_cast<std::int64_t>(event->timestamp()));
    });
  QTreeView::keyPressEvent(event);
  act(seat_, list_, [this, reached = currentIndex().row()] { list_.reach(reached); });
}

void RowList::perform(const ListView::Action& action) {
  const int row = list_.current();
  if (row >= 0) act(seat_, list_, [this, &action, row] { action.run(list_.rowsFor(row)); });
}

}  // namespace

QWidget* makeWidget(ListView& list, const Seat& seat) {
  auto* widget = new RowList(list, seat);
  keepShown(list, *widget, [widget] { widget->refresh(); });
  return widget;
}

}  // namespace korvane::qt
