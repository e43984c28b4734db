#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTreeView>
#include <algorithm>
#include <utility>

#include "views/qt/kinds/Binder.h"
#include "views/qt/kinds/CellDelegate.h"
#include "views/qt/kinds/ListModel.h"

namespace korvane::qt {
namespace {

constexpr QSize kRoomOfList{220, 160};
constexpr int kColumnWidth = 190;  // of one among several
constexpr QSize kLeastSize{140, 96};
constexpr int kDropLine = 3;  // height of the line where rows would be dropped
constexpr const char* kRows = "application/x-korvane-rows";
constexpr auto kHeld = Qt::ControlModifier | Qt::AltModifier;
constexpr int kPictureStrip = 40;  // from the left edge: what pictures in the rows take at most

class RowList : public QTreeView {
 public:
  RowList(ListView& list, const Seat& seat);
  ~RowList() override { list_.onPictures = nullptr; }

  void refresh();
  void reset() override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return kLeastSize; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override { dragMoveEvent(event); }
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent*) override { showDrop(-1); }
  void dropEvent(QDropEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

 private:
  void shareWidth();
  int widthOfTexts() const;
  void showCurrentRow();
  void showCenteredRow();
  void showEditor();
  void perform(const ListView::Action& action, int row);
  void click(const QModelIndex& index, Qt::KeyboardModifiers held);
  RowList* sourceOf(const QDropEvent& event) const;
  int rowBelow(const QPoint& at) const;
  void showDrop(int before);

  ListView& list_;
  Seat seat_;
  ListModel model_;
  int centered_ = -1;  // as it was brought to the middle last
  bool editorOpen_ = false;
  QPersistentModelIndex pressed_;  // where rows can be dragged
  QPoint pressedAt_;
  std::vector<int> dragged_;
  int dropBefore_ = -1;
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
  setAcceptDrops(true);
  header()->setSectionsClickable(false);
  header()->setSectionsMovable(false);
  header()->setStretchLastSection(true);
  header()->setMinimumSectionSize(0);
  header()->setSectionResizeMode(QHeaderView::Fixed);
  list.onPictures = [this] { viewport()->update(0, 0, kPictureStrip, viewport()->height()); };
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

// A cell that is edited stays in sight until it is done.
void RowList::showCenteredRow() {
  if (list_.editing()) return;
  const QModelIndex middle = model_.index(list_.centered(), 0);
  if (centered_ == middle.row() || !middle.isValid()) return;
  centered_ = middle.row();
  scrollTo(middle, PositionAtCenter);
}

void RowList::showEditor() {
  if (!list_.editing() || editorOpen_) return;
  editorOpen_ = true;
  const QModelIndex cell = model_.index(list_.editRow(), list_.editCol());
  scrollTo(cell);
  edit(cell);
}

// The editor is gone, whether its text was taken or not.
void RowList::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  editorOpen_ = false;
  QTreeView::closeEditor(editor, hint);
  if (list_.editing()) act(seat_, list_, [this] { list_.cancelEdit(); });
}

// So wide that each column's share holds its longest text.
int RowList::widthOfTexts() const {
  ensurePolished();
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  double widest = 0;
  for (int col = 0; col < model_.columnCount(); ++col) {
    const double share = list_.columns()[static_cast<std::size_t>(col)].width;
    for (int row = 0; share > 0 && row < list_.count(); ++row) {
      const int room = itemDelegate()->sizeHint(option, model_.index(row, col)).width();
      widest = std::max(widest, (room + 1) / share);
    }
  }
  return static_cast<int>(widest) + verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
}

// A table that nobody edits is there to be read, so all of it.
QSize RowList::sizeHint() const {
  const int shown = header()->count() - header()->hiddenSectionCount();
  const int columns = shown < 2 ? 0 : shown * kColumnWidth;
  const int texts = shown < 2 || list_.editable() ? 0 : widthOfTexts();
  return {std::max({kRoomOfList.width(), columns, texts}), kRoomOfList.height()};
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

void RowList::click(const QModelIndex& index, Qt::KeyboardModifiers held) {
  act(seat_, list_, [this, row = index.row(), col = index.column(), held] {
    if (held & Qt::ControlModifier) return list_.clickGathering(row, col);
    if (held & Qt::ShiftModifier) return list_.clickRange(row, col);
    list_.click(row, col);
  });
}

// A row that may be dragged is clicked when the button is let go: it must not play on its way.
void RowList::mousePressEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->pos());
  if (event->button() != Qt::LeftButton || !index.isValid()) return;
  if (list_.takesRowsOf == nullptr) return click(index, event->modifiers());
  pressed_ = index;
  pressedAt_ = event->pos();
}

void RowList::mouseReleaseEvent(QMouseEvent* event) {
  const QModelIndex index = std::exchange(pressed_, QPersistentModelIndex());
  if (index.isValid()) click(index, event->modifiers());
}

// Dragging takes the gathered rows, or the one that was pressed.
void RowList::mouseMoveEvent(QMouseEvent* event) {
  const bool far =
      (event->pos() - pressedAt_).manhattanLength() >= QApplication::startDragDistance();
  if (!pressed_.isValid() || !far) return;
  dragged_ = list_.rowsFor(pressed_.row());
  auto* drag = new QDrag(this);
  auto* carried = new QMimeData;
  carried->setData(kRows, {});
  drag->setMimeData(carried);
  drag->setPixmap(viewport()->grab(visualRect(pressed_)));
  pressed_ = QPersistentModelIndex();
  drag->exec(Qt::MoveAction | Qt::CopyAction, Qt::MoveAction);
}

RowList* RowList::sourceOf(const QDropEvent& event) const {
  auto* from = dynamic_cast<RowList*>(event.source());
  const bool taken = from != nullptr && event.mimeData()->hasFormat(kRows) && list_.takesRowsOf &&
                     list_.takesRowsOf(from->list_);
  return taken ? from : nullptr;
}

// The row before whose upper edge, or behind whose middle, rows are let go.
int RowList::rowBelow(const QPoint& at) const {
  const QModelIndex index = indexAt(at);
  if (!index.isValid()) return list_.count();
  return index.row() + (at.y() > visualRect(index).center().y() ? 1 : 0);
}

void RowList::showDrop(int before) {
  dropBefore_ = before;
  viewport()->update();
}

void RowList::dragMoveEvent(QDragMoveEvent* event) {
  if (sourceOf(*event) == nullptr) return event->ignore();
  showDrop(rowBelow(event->position().toPoint()));
  const bool copies = event->modifiers() & Qt::ControlModifier;
  event->setDropAction(copies ? Qt::CopyAction : Qt::MoveAction);
  event->accept();
}

void RowList::dropEvent(QDropEvent* event) {
  RowList* from = sourceOf(*event);
  if (from == nullptr) return event->ignore();
  const int before = rowBelow(event->position().toPoint());
  const bool copies = event->modifiers() & Qt::ControlModifier;
  showDrop(-1);
  event->setDropAction(copies ? Qt::CopyAction : Qt::MoveAction);
  event->accept();
  act(seat_, list_, [&] {
    if (list_.onDrop) list_.onDrop({from->list_, from->dragged_, before, copies});
  });
}

// With the line before which the rows would come to stand.
void RowList::paintEvent(QPaintEvent* event) {
  QTreeView::paintEvent(event);
  if (dropBefore_ < 0) return;
  const bool last = dropBefore_ >= list_.count();
  const QRect row = visualRect(model_.index(last ? list_.count() - 1 : dropBefore_, 0));
  const int y = list_.count() == 0 ? 0 : last ? row.bottom() : row.top();
  QPainter painter(viewport());
  painter.fillRect(0, std::max(y - 1, 0), viewport()->width(), kDropLine,
                   palette().color(QPalette::Highlight).lighter());
}

void RowList::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  const int row = byKey ? list_.current() : indexAt(event->pos()).row();
  if (row < 0 || list_.actions.empty()) return;
  QMenu menu(this);
  for (const ListView::Action& action : list_.actions) {
    const QString key = action.key.empty() ? "" : "\t" + text(action.key);
    menu.addAction(text(action.caption) + key, [this, &action, row] { perform(action, row); });
  }
  const QRect place = visualRect(model_.index(row, 0));
  menu.exec(byKey ? viewport()->mapToGlobal(place.bottomLeft()) : event->globalPos());
}

// Two rows may be gathered as quickly as one is clicked twice.
void RowList::mouseDoubleClickEvent(QMouseEvent* event) {
  const bool gathers = event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
  if (gathers && !list_.actions.empty()) return mousePressEvent(event);
  const QModelIndex index = indexAt(event->pos());
  if (event->button() != Qt::LeftButton || !index.isValid()) return;
  act(seat_, list_, [this, row = index.row()] { list_.doubleClick(row); });
}

void RowList::keyPressEvent(QKeyEvent* event) {
  if (editorOpen_) return;  // keys that the editor leaves over
  const int key = keyCode(event->key());
  if (ListView::takesKey(key)) return act(seat_, list_, [this, key] { list_.key(key); });
  const std::string name = keyName(*event);
  if (const ListView::Action* action = list_.actionOf(name))
    return perform(*action, list_.gathered().empty() ? list_.current() : list_.gathered().front());
  if (!event->text().isEmpty() && event->text().at(0).isPrint() && !(event->modifiers() & kHeld))
    return act(seat_, list_, [this, event] {
      list_.typed(event->text().toStdString(), static_cast<std::int64_t>(event->timestamp()));
    });
  QTreeView::keyPressEvent(event);
  act(seat_, list_, [this, reached = currentIndex().row()] { list_.reach(reached); });
}

void RowList::perform(const ListView::Action& action, int row) {
  if (row < 0) return;
  act(seat_, list_, [this, &action, row] { action.run(list_.rowsFor(row)); });
}

}  // namespace

QWidget* makeWidget(ListView& list, const Seat& seat) {
  auto* widget = new RowList(list, seat);
  keepShown(list, *widget, [widget] { widget->refresh(); });
  return widget;
}

}  // namespace korvane::qt
