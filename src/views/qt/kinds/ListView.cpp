#include "platform/ListView.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTreeView>
#include <algorithm>

#include "views/qt/kinds/Binder.h"
#include "views/qt/kinds/CellDelegate.h"
#include "views/qt/kinds/ListModel.h"

namespace korvane {
namespace {

constexpr QSize kSize{220, 160};
constexpr int kColumnWidth = 190;  // of one among several
constexpr QSize kLeastSize{140, 96};

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
  void click(int row, int col);
  void editCurrentRow();
  void shareWidth();
  void showCurrentRow();
  void showEditor();

  ListView& list_;
  Seat seat_;
  ListModel model_;
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
}

void RowList::click(int row, int col) {
  act(seat_, list_, [this, row, col] { list_.click(row, col); });
}

void RowList::mousePressEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->pos());
  if (event->button() == Qt::LeftButton && index.isValid()) click(index.row(), index.column());
}

void RowList::mouseDoubleClickEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->pos());
  if (event->button() != Qt::LeftButton || !index.isValid()) return;
  act(seat_, list_, [this, row = index.row()] { list_.doubleClick(row); });
}

// The keys that move the focus click the row that they reach, Enter is a double click, F2 edits.
void RowList::keyPressEvent(QKeyEvent* event) {
  if (editorOpen_) return;  // keys that the editor leaves over
  const int row = list_.current();
  switch (event->key()) {
    case Qt::Key_F2:
      return editCurrentRow();
    case Qt::Key_Space:
      return row >= 0 ? click(row, 0) : void();
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (row >= 0) act(seat_, list_, [this, row] { list_.doubleClick(row); });
      return;
    default:
      break;
  }
  QTreeView::keyPressEvent(event);
  const int reached = currentIndex().row();
  if (reached >= 0 && reached != row) click(reached, 0);
}

void RowList::editCurrentRow() {
  for (int col = 0; col < model_.columnCount(); ++col) {
    if (!list_.columns()[static_cast<std::size_t>(col)].editable || list_.current() < 0) continue;
    return act(seat_, list_, [this, col] { list_.beginEdit(list_.current(), col); });
  }
}

}  // namespace

QWidget* bindListView(Control& control, const Seat& seat) {
  auto& list = static_cast<ListView&>(control);
  auto* widget = new RowList(list, seat);
  keepShown(control, *widget, [widget] { widget->refresh(); });
  return widget;
}

}  // namespace korvane
