#include "views/qt/windows/FormWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

#include "platform/KeyNames.h"
#include "views/qt/windows/FittingArea.h"
#include "views/qt/windows/LayoutBuilder.h"

namespace korvane::qt {
namespace {

constexpr int kMargin = 12;
constexpr QSize kGrip{120, 20};  // of a title bar, by which a window can be moved

QRect whollyOn(const QScreen& screen, QRect window) {
  const QRect room(screen.availableGeometry().topLeft(), roomOn(screen));
  window.setSize(window.size().boundedTo(room.size()));
  window.moveTo(std::clamp(window.x(), room.x(), room.x() + room.width() - window.width()),
                std::clamp(window.y(), room.y(), room.y() + room.height() - window.height()));
  return window;
}

// The place itself if the window can be taken hold of there, else one wholly on a screen.
QRect onAScreen(const QRect& window) {
  const QRect title(window.topLeft(), QSize(window.width(), 2 * kGrip.height()));
  const QScreen* on = QGuiApplication::primaryScreen();
  bool reachable = false;
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QSize seen = (screen->availableGeometry() & title).size();
    if (seen.width() < std::min(kGrip.width(), window.width()) || seen.height() < kGrip.height())
      continue;
    on = screen;
    reachable = true;
  }
  if (reachable && window.size().boundedTo(roomOn(*on)) == window.size()) return window;
  return whollyOn(*on, window);
}

}  // namespace

FormWindow::FormWindow(Form& form, Desktop& desktop, EventGate& gate, FormWindow* owner)
    : QWidget(owner, owner == nullptr ? Qt::Window : Qt::Dialog),
      form_(form),
      desktop_(desktop),
      seat_{this, gate},
      declaredWidth_(form.width()) {
  setObjectName(text(form.name()));
  form.surface != nullptr ? makeSurface() : makeControls();
  watchFocus();
  form.onShown = [this] { refresh(); };
  resize(sizeHint().boundedTo(roomOn(*screen())));
  refresh();
}

FormWindow::~FormWindow() { form_.onShown = nullptr; }

void FormWindow::makeSurface() {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  QWidget* picture = makeWidget(*form_.surface, seat_);
  layout->addWidget(picture);
  widgets_[form_.surface] = picture;
}

void FormWindow::makeControls() {
  auto* content = new Content;
  auto* area = new FittingArea(content);
  auto* surround = new QVBoxLayout(this);
  surround->setContentsMargins(0, 0, 0, 0);
  surround->addWidget(area);
  LayoutBuilder builder(form_, {content, seat_.gate});
  auto* layout = new QVBoxLayout(content);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->addLayout(builder.build());
  widgets_ = builder.widgets();
  if (!form_.menus().empty()) surround->setMenuBar(makeMenus());
}

QMenuBar* FormWindow::makeMenus() {
  auto* bar = new QMenuBar(this);
  for (const Menu& menu : form_.menus()) {
    QMenu* shown = bar->addMenu(text(menu.caption));
    shown->setToolTipsVisible(true);
    for (const MenuItem* item : menu.items) {
      if (item == nullptr) {
        shown->addSeparator();
      } else {
        shown->addAction(widget(*item)->actions().front());
      }
    }
  }
  return bar;
}

QWidget* FormWindow::widget(const Control& control) const {
  const auto found = widgets_.find(&control);
  return found == widgets_.end() ? nullptr : found->second;
}

// A window without a frame fills the screen. One that a person has maximized stays so.
void FormWindow::open() {
  // It begins at its first control, not at the OK that closed it: a blank in a name would press it.
  if (isHidden() && focusWidget() != nullptr) focusWidget()->clearFocus();
  setWindowModality(form_.modal() ? Qt::ApplicationModal : Qt::NonModal);
  const bool goesBack = maximized_ && !form_.maximized;
  framed_ = form_.framed;
  maximized_ = form_.maximized;
  if (!framed_) return showFullScreen();
  if (maximized_) return showMaximized();
  const Qt::WindowStates back = goesBack ? Qt::WindowMaximized : Qt::WindowNoState;
  setWindowState(windowState() & ~(Qt::WindowMinimized | Qt::WindowFullScreen | back));
  show();
}

// A window that the system has made the active one needs no more: asking again would set two
// windows that were shown in a row fighting for it.
void FormWindow::activate() {
  if (isActiveWindow()) return;
  if (isMinimized()) open();
  raise();
  activateWindow();
}

void FormWindow::refresh() {
  setWindowTitle(text(form_.caption()));
  takeAllKeys(form_.onAnyKey != nullptr);
  if (isVisible() && (framed_ != form_.framed || maximized_ != form_.maximized)) open();
  if (form_.width() != declaredWidth_) followSize();
  if (const auto place = form_.takeWantedPlace()) takePlace(*place);
}

// While a window fills its screen it keeps the place that it goes back to.
void FormWindow::notePlace() {
  if (!isVisible() || isMinimized() || isFullScreen()) return;
  if (!isMaximized()) return form_.notePlace({pos().x(), pos().y(), width(), height(), false});
  const QRect back = normalGeometry();
  WindowPlace place =
      form_.place().value_or(WindowPlace{back.x(), back.y(), back.width(), back.height(), true});
  place.maximized = true;
  form_.notePlace(place);
}

void FormWindow::takePlace(const WindowPlace& place) {
  const QRect fitted = onAScreen({place.x, place.y, place.width, place.height});
  if (isMaximized() && !place.maximized) setWindowState(windowState() & ~Qt::WindowMaximized);
  move(fitted.topLeft());
  resize(fitted.size());
  if (place.maximized) setWindowState(windowState() | Qt::WindowMaximized);
}

void FormWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::WindowStateChange) notePlace();
  QWidget::changeEvent(event);
}

// The declared width is in units of another window system: another one means that the window takes
// the size that it had under it, or what its controls ask for. They may change just after it.
void FormWindow::followSize() {
  sizes_[declaredWidth_] = size();
  declaredWidth_ = form_.width();
  QTimer::singleShot(0, this, [this] {
    layout()->invalidate();
    layout()->activate();
    const auto known = sizes_.find(declaredWidth_);
    const QSize fresh = QSize(sizeHint().width(), height()).boundedTo(roomOn(*screen()));
    resize(known == sizes_.end() ? fresh : known->second);
  });
}

// A window that its controls have outgrown takes what they ask for, rather than the least that they
// can do with, and stays on its screen with its last line.
void FormWindow::resizeEvent(QResizeEvent* event) {
  notePlace();
  const QSize from = event->oldSize();
  if (!from.isValid() || from.expandedTo(minimumSize()) == from) return;
  QTimer::singleShot(0, this, [this, from] {
    if (isMaximized() || isFullScreen()) return;
    const QRect fitted = whollyOn(*screen(), {pos(), sizeHint().expandedTo(from)});
    move(fitted.topLeft());
    resize(fitted.size());
  });
}

void FormWindow::watchFocus() {
  for (const auto& [control, widget] : widgets_) {
    widget->installEventFilter(this);
    for (QWidget* inner : widget->findChildren<QWidget*>()) inner->installEventFilter(this);
  }
}

const Control* FormWindow::focusedControl() const {
  for (QWidget* at = focusWidget(); at != nullptr && at != this; at = at->parentWidget()) {
    const auto found = std::find_if(widgets_.begin(), widgets_.end(),
                                    [at](const auto& entry) { return entry.second == at; });
    if (found != widgets_.end()) return found->first;
  }
  return nullptr;
}

bool FormWindow::focusWants(const QKeyEvent& event) const {
  const Control* control = focusedControl();
  return control != nullptr && wantsKey(*control, keyName(event), !tabbed_);
}

void FormWindow::takeAllKeys(bool all) {
  if (all == allKeys_) return;
  allKeys_ = all;
  all ? qApp->installEventFilter(this) : qApp->removeEventFilter(this);
}

bool FormWindow::isOurs(const QObject& object) const {
  if (object.isWindowType()) return &object == windowHandle();
  return object.isWidgetType() && static_cast<const QWidget&>(object).window() == this;
}

// A window gives its first focus away as Tab would, and a click where the focus is gives none: the
// person's own Tab and clicks tell.
void FormWindow::noteReached(const QEvent& event) {
  if (event.type() == QEvent::MouseButtonPress) tabbed_ = false;
  if (event.type() != QEvent::KeyPress) return;
  const int key = static_cast<const QKeyEvent&>(event).key();
  if (key == Qt::Key_Tab || key == Qt::Key_Backtab) tabbed_ = true;
}

bool FormWindow::eventFilter(QObject* object, QEvent* event) {
  noteReached(*event);
  const bool key = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
  if (!allKeys_ || !key || !isOurs(*object)) return QWidget::eventFilter(object, event);
  event->accept();
  const std::string name = keyName(*static_cast<QKeyEvent*>(event));
  if (event->type() == QEvent::KeyPress && !name.empty())
    seat_.gate.run([this, &name] { form_.anyKey(name); });
  return true;
}

// A key goes to the control that has the focus before it is a command, if that control wants it.
bool FormWindow::event(QEvent* event) {
  noteReached(*event);
  if (event->type() == QEvent::ShortcutOverride && focusWants(*static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  if (event->type() == QEvent::WindowActivate && desktop_.active() != &form_.front()) {
    seat_.gate.run([this] { desktop_.activate(form_.front()); });
  }
  return QWidget::event(event);
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  seat_.gate.run([this] { desktop_.close(form_); });
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  const int key = keyCode(event->key());
  if (!form_.takesKey(key)) return QWidget::keyPressEvent(event);
  seat_.gate.run([this, key] { form_.key(key); });
}

void FormWindow::mousePressEvent(QMouseEvent*) {
  if (form_.onClick) seat_.gate.run([this] { form_.onClick(); });
}

}  // namespace korvane::qt
