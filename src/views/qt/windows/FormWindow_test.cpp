#include "views/qt/windows/FormWindow.h"

#include <QLayout>
#include <QScreen>

#include "views/qt/testing/Settle.h"
#include "views/qt/testing/ShownForm.h"

namespace korvane::qt {
namespace {

class FormWindows : public ShownForm {
 protected:
  static QRect placeOf(const FormWindow& window) { return {window.pos(), window.size()}; }

  Button button{"button", {.caption = "Press"}};
  Button inside{"inside", {.caption = "Inside"}};
};

TEST_F(FormWindows, ShowTheCaption) {
  FormWindow& window = show({&button});
  EXPECT_EQ(window.windowTitle(), "plain");
  form->setCaption("other");
  EXPECT_EQ(window.windowTitle(), "other");
}

TEST_F(FormWindows, TheFramesCloseButtonHidesTheFormAfterItsHandler) {
  FormWindow& window = show({&button});
  bool visibleThen = false;
  form->onClose = [&] { visibleThen = form->visible(); };
  window.close();
  EXPECT_TRUE(visibleThen);
  EXPECT_FALSE(form->visible());
  EXPECT_FALSE(window.isVisible());
}

TEST_F(FormWindows, TheActivateHandlerRunsOncePerChange) {
  PlainForm other("other", {&inside});
  desktop.add(other);
  int first = 0;
  int second = 0;
  other.onActivate = [&second] { ++second; };
  show({&button});
  form->onActivate = [&first] { ++first; };
  gate.run([&] { desktop.show(other); });
  ASSERT_TRUE(QTest::qWaitForWindowActive(&view->window(other)));
  EXPECT_EQ(first, 0);
  EXPECT_EQ(second, 1);
  view->window(*form).activateWindow();
  EXPECT_TRUE(QTest::qWaitFor([&] { return desktop.active() == form.get(); }, 2000));
  settle();
  EXPECT_EQ(first, 1);
  view.reset();
}

TEST_F(FormWindows, TwoWindowsShownInARowDoNotFightForTheFront) {
  PlainForm other("other", {&inside});
  desktop.add(other);
  int activations = 0;
  show({&button});
  form->onActivate = other.onActivate = [&activations] { ++activations; };
  gate.run([&] {
    desktop.hide(*form);
    desktop.show(*form);
    desktop.show(other);
  });
  ASSERT_TRUE(QTest::qWaitForWindowActive(&view->window(other)));
  settle();
  EXPECT_EQ(desktop.active(), &other);
  EXPECT_LE(activations, 4);
  view.reset();
}

TEST_F(FormWindows, AModalFormShutsTheOthersUntilItIsHidden) {
  PlainForm modal("modal", {&inside});
  desktop.add(modal);
  bool closed = false;
  FormWindow& window = show({&button});
  gate.run([&] { desktop.showModal(modal, [&closed] { closed = true; }); });
  EXPECT_TRUE(view->window(modal).isModal());
  EXPECT_EQ(QApplication::activeModalWidget(), &view->window(modal));
  EXPECT_FALSE(closed) << "showing it waits for nothing";
  gate.run([&] { desktop.hide(modal); });
  EXPECT_TRUE(closed);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_TRUE(window.isVisible());
  view.reset();
}

TEST_F(FormWindows, AnotherDeclaredWidthTakesTheWindowToItsControls) {
  Group wide("wide", {.caption = "Wide"});
  show({&button, &inside});
  auto* plain = static_cast<PlainForm*>(form.get());
  const auto width = [this] { return view->window(*form).width(); };
  plain->setSize(8200, 100);
  settle();
  view->window(*form).resize(900, 300);
  plain->setSize(6000, 100);
  EXPECT_TRUE(QTest::qWaitFor([&] { return width() < 900; }));
  plain->setSize(8200, 100);
  EXPECT_TRUE(QTest::qWaitFor([&] { return width() == 900; })) << "it comes back as it was";
}

TEST_F(FormWindows, ControlsThatHaveOutgrownAWindowGetWhatTheyAskForOnItsScreen) {
  struct Folded : PlainForm {
    Folded(Button& above, Group& group, ListView& list)
        : PlainForm("folded", {&above, &group, &list}) {
      group.setVisible(false);
      setLayout(column({above, boxed(group, column({list}))}));
    }
  };
  Group group("group");
  ListView list("list");
  Folded folded(button, group, list);
  desktop.add(folded);
  view = std::make_unique<DesktopView>(desktop, gate, folded);
  desktop.show(folded);
  const FormWindow& window = view->window(folded);
  const QRect screen = window.screen()->availableGeometry();
  folded.moveTo({60, screen.bottom() - 100, 200, 60, false});
  settle();
  gate.run([&] { group.setVisible(true); });
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.height() == window.sizeHint().height(); }));
  EXPECT_GT(window.height(), window.layout()->totalMinimumSize().height()) << "not the least alone";
  EXPECT_TRUE(screen.contains(window.frameGeometry()));
  view.reset();
}

TEST_F(FormWindows, TheMenusAboveHaveTheirRoomOnASmallScreen) {
  std::vector<std::unique_ptr<Button>> rows;
  std::vector<Control*> controls;
  for (int row = 0; row < 60; ++row) {
    rows.push_back(std::make_unique<Button>("row" + std::to_string(row), Look{.caption = "Row"}));
    controls.push_back(rows.back().get());
  }
  MenuItem item("item", {.caption = "Item"}, "");
  controls.push_back(&item);
  struct WithMenu : PlainForm {
    WithMenu(const std::vector<Control*>& all, MenuItem& item) : PlainForm("menus", all) {
      setMenus({{"Menu", {&item}}});
    }
  };
  auto menus = std::make_unique<WithMenu>(controls, item);
  desktop.add(*menus);
  view = std::make_unique<DesktopView>(desktop, gate, *menus);
  const FormWindow& window = view->window(*menus);
  const QSize least = window.layout()->totalMinimumSize();
  EXPECT_LE(least.height(), window.screen()->availableSize().height() - 40) << "less the frame";
  view.reset();
}

TEST_F(FormWindows, TellTheirPlaceAndTakeTheOneThatIsWanted) {
  FormWindow& window = show({&button});
  window.move(60, 50);
  window.resize(300, 200);
  settle();
  ASSERT_TRUE(form->place());
  EXPECT_EQ(*form->place(), (WindowPlace{60, 50, 300, 200, false}));
  form->moveTo({50, 60, 310, 220, false});
  settle();
  EXPECT_EQ(placeOf(window), QRect(50, 60, 310, 220));
  EXPECT_EQ(*form->place(), (WindowPlace{50, 60, 310, 220, false}));
}

TEST_F(FormWindows, APlaceOnNoScreenIsMovedToOne) {
  FormWindow& window = show({&button});
  const QRect screen = window.screen()->availableGeometry();
  for (const WindowPlace& place :
       {WindowPlace{5000, 100, 300, 200, false}, WindowPlace{-2000, -900, 300, 200, false},
        WindowPlace{100, screen.bottom(), 300, 200, false}}) {
    form->moveTo(place);
    settle();
    EXPECT_TRUE(screen.contains(placeOf(window))) << place.x << " " << place.y;
  }
}

TEST_F(FormWindows, AWindowThatFillsTheScreenKeepsThePlaceThatItGoesBackTo) {
  FormWindow& window = show({&button});
  form->moveTo({60, 50, 300, 200, true});
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.isMaximized(); }));
  settle();
  EXPECT_EQ(*form->place(), (WindowPlace{60, 50, 300, 200, true}));
  form->moveTo({60, 50, 300, 200, false});
  EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isMaximized(); }));
  settle();
  EXPECT_EQ(placeOf(window), QRect(60, 50, 300, 200));
}

TEST_F(FormWindows, AWindowThatAPersonHasMaximizedStaysSo) {
  FormWindow& window = show({&button});
  window.showMaximized();
  settle();
  form->setCaption("plain*");
  settle();
  EXPECT_TRUE(window.isMaximized());
  EXPECT_TRUE(form->place() && form->place()->maximized);
}

TEST_F(FormWindows, AWindowThatWasNotShownYetOpensAtItsPlace) {
  PlainForm other("other", {&inside});
  desktop.add(other);
  show({&button});
  other.moveTo({50, 60, 320, 210, false});
  gate.run([&] { desktop.show(other); });
  settle();
  EXPECT_EQ(placeOf(view->window(other)), QRect(50, 60, 320, 210));
  view.reset();
}

TEST_F(FormWindows, AWindowThatIsOpenedAgainDoesNotBeginWhereItWasLeft) {
  const FormWindow& window = show({&button, &inside});
  on(inside).setFocus();
  ASSERT_EQ(window.focusWidget(), &on(inside));
  gate.run([this] { desktop.hide(*form); });
  gate.run([this] { desktop.show(*form); });
  settle();
  EXPECT_NE(window.focusWidget(), &on(inside));
}

TEST_F(FormWindows, KeysThatNoControlTakesGoToTheForm) {
  std::vector<int> keys;
  show({});
  form->onKeyPress = [&keys](int key) { keys.push_back(key); };
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space, Qt::Key_A})
    QTest::keyClick(&view->window(*form), key);
  EXPECT_EQ(keys, (std::vector<int>{13, 27, 32}));
}

// A window whose whole surface is one picture.
class Surface : public testing::Test {
 protected:
  HeadlessPlatform platform;
  TimerQueue timers;
  LoopGate gate{platform, timers};
  Desktop desktop;
  PictureBox picture{"picture", {320, 200, PictureBox::Sizing::Grow}};
  Form main{"main", "main"};
  Form form{"surface", "surface"};
};

TEST_F(Surface, FillsItsWindowAndTheScreenWithoutAFrame) {
  form.surface = &picture;
  desktop.add(form);
  DesktopView view(desktop, gate, main);
  desktop.show(form);
  FormWindow& window = view.window(form);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  EXPECT_EQ(picture.width(), static_cast<int>(window.width() * window.devicePixelRatioF()));
  EXPECT_FALSE(window.isFullScreen());
  form.framed = false;
  form.maximized = true;
  form.shown();
  EXPECT_TRUE(window.isFullScreen());
  form.framed = true;
  form.maximized = false;
  form.shown();
  EXPECT_FALSE(window.isFullScreen());
}

}  // namespace
}  // namespace korvane::qt
