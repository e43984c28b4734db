#pragma once

#include <QMenuBar>
#include <QWidget>
#include <map>

#include "platform/Desktop.h"
#include "views/qt/kinds/Binder.h"

namespace korvane::qt {

/// The window of a form on the screen. The form must outlive it.
class FormWindow : public QWidget {
 public:
  /// It stays above its owner, if it has one.
  FormWindow(Form& form, Desktop& desktop, EventGate& gate, FormWindow* owner);
  ~FormWindow() override;

  void open();
  /// Brings it to the front and gives it the keyboard.
  void activate();
  void setReachable(bool) {}  // the toolkit's own modality sees to that
  /// The widget of a control of the form, nullptr if it has none.
  QWidget* widget(const Control& control) const;

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void moveEvent(QMoveEvent*) override { notePlace(); }
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void notePlace();
  void takePlace(const WindowPlace& place);
  void makeSurface();
  void makeControls();
  QMenuBar* makeMenus();
  void refresh();
  void followSize();
  void watchFocus();
  void noteReached(const QEvent& event);
  const Control* focusedControl() const;
  bool focusWants(const QKeyEvent& event) const;
  void takeAllKeys(bool all);
  bool isOurs(const QObject& object) const;

  Form& form_;
  Desktop& desktop_;
  Seat seat_;
  std::map<const Control*, QWidget*> widgets_;
  bool tabbed_ = false;   // the person went to the focus by Tab
  bool allKeys_ = false;  // are the window's
  bool framed_ = true;    // as the form said last
  bool maximized_ = false;
  int declaredWidth_ = 0;
  std::map<int, QSize> sizes_;  // that the window had, by its declared width
};

}  // namespace korvane::qt
