#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "platform/Controls.h"
#include "platform/Events.h"
#include "platform/HeadlessPlatform.h"
#include "platform/ListView.h"
#include "platform/PictureBox.h"
#include "platform/TimerQueue.h"
#include "testing/PlainForm.h"
#include "views/qt/machine/LoopGate.h"
#include "views/qt/windows/DesktopView.h"

namespace korvane::qt {

/// Controls of a test's own on the screen.
class ShownForm : public testing::Test {
 protected:
  void TearDown() override { view.reset(); }  // the controls go before this fixture does

  FormWindow& show(const std::vector<Control*>& controls) {
    form = std::make_unique<PlainForm>("plain", controls);
    desktop.add(*form);
    view = std::make_unique<DesktopView>(desktop, gate, *form);
    desktop.show(*form);
    FormWindow& window = view->window(*form);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    return window;
  }
  /// The widget of a control, or the one of this class inside it.
  template <class Widget = QWidget>
  Widget& on(const Control& control) {
    QWidget* widget = view->window(*form).widget(control);
    auto* own = dynamic_cast<Widget*>(widget);
    return own != nullptr ? *own : *widget->findChild<Widget*>();
  }

  HeadlessPlatform platform;
  TimerQueue timers;
  LoopGate gate{platform, timers};
  Desktop desktop;
  std::unique_ptr<Form> form;
  std::unique_ptr<DesktopView> view;
};

}  // namespace korvane::qt
