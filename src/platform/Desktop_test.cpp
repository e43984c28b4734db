#include "platform/Desktop.h"

#include <gtest/gtest.h>

#include "platform/Controls.h"
#include "testing/FailureOf.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

// A window with one button in a group, and what it tells.
struct Window : Form {
  Window(const std::string& name, Texts& events) : Form(name, "Caption of " + name) {
    add({&button, &group, &lonely});
    setLayout(column({boxed(group, row({button})), lonely}));
    onLoad = [this, &events] {
      events.push_back(this->name() + " load");
      if (refuses) throw Failure(kFileNotFound);
    };
    onActivate = [this, &events] {
      events.push_back(this->name() + " activate");
      if (failsToActivate) throw Failure(kOverflow);
    };
    onClose = [this, &events] { events.push_back(this->name() + " close"); };
  }

  Button button{"button"};
  Group group{"group"};
  Label lonely{"lonely"};
  bool refuses = false;
  bool failsToActivate = false;
};

class DesktopTest : public testing::Test {
 protected:
  DesktopTest() {
    for (Window* form : {&a, &b, &c}) desktop.add(*form);
  }
  Texts take() { return std::exchange(events, {}); }
  std::function<void()> noting(const std::string& text) {
    return [this, text] { events.push_back(text); };
  }

  Texts events;
  Window a{"a", events}, b{"b", events}, c{"c", events};
  Desktop desktop;
};

TEST_F(DesktopTest, FindsWindowsAndControlsByName) {
  EXPECT_EQ(desktop.find("b"), &b);
  EXPECT_EQ(desktop.find("nobody"), nullptr);
  EXPECT_EQ(&desktop.named("b"), &b);
  EXPECT_EQ(failureOf([this] { desktop.named("nobody"); }), kObjectNotSet) << "no silence";
  EXPECT_EQ(a.find("button"), &a.button);
  EXPECT_EQ(a.find("Button"), nullptr);
}

TEST_F(DesktopTest, WindowsAreFoundByTheirType) {
  struct Other : Window {
    using Window::Window;
  };
  EXPECT_EQ(desktop.find<Window>(), &a);
  EXPECT_EQ(desktop.find<Other>(), nullptr);
  EXPECT_EQ(failureOf([&] { desktop.get<Other>(); }), kObjectNotSet);
  Other other("other", events);
  desktop.add(other);
  EXPECT_EQ(&desktop.get<Other>(), &other);
}

TEST_F(DesktopTest, ControlsKnowTheirWindowAndTheirGroup) {
  EXPECT_EQ(a.button.form, &a);
  EXPECT_EQ(a.button.group, &a.group);
  EXPECT_EQ(a.lonely.group, nullptr);
  EXPECT_EQ(a.controls(), (std::vector<Control*>{&a.button, &a.group, &a.lonely}));
}

TEST_F(DesktopTest, ShowingLoadsThenActivates) {
  desktop.show(a);
  EXPECT_EQ(take(), (Texts{"a load", "a activate"}));
  EXPECT_TRUE(a.visible());
  EXPECT_EQ(desktop.active(), &a);
}

TEST_F(DesktopTest, AWindowLoadsOnceInItsLife) {
  desktop.show(a);
  desktop.hide(a);
  take();
  desktop.show(a);
  EXPECT_EQ(take(), Texts{"a activate"});
  a.load();
  EXPECT_EQ(take(), Texts{});
}

TEST_F(DesktopTest, AWindowCanLoadWithoutBeingShown) {
  a.load();
  EXPECT_TRUE(a.loaded());
  EXPECT_FALSE(a.visible());
  EXPECT_EQ(take(), Texts{"a load"});
}

TEST_F(DesktopTest, ALoadThatFailsShowsNothingAndIsTriedAgain) {
  a.refuses = true;
  EXPECT_EQ(failureOf([&] { desktop.show(a); }), kFileNotFound);
  EXPECT_FALSE(a.visible());
  EXPECT_FALSE(a.loaded());
  EXPECT_EQ(desktop.active(), nullptr);
  a.refuses = false;
  take();
  desktop.show(a);
  EXPECT_EQ(take(), (Texts{"a load", "a activate"}));
}

TEST_F(DesktopTest, AHandlerOfTheLoadMayUseTheWindow) {
  a.onLoad = [&] {
    events.emplace_back("load");
    a.load();
  };
  a.load();
  EXPECT_EQ(take(), Texts{"load"});
}

TEST_F(DesktopTest, ShowingTheActiveWindowAgainDoesNothing) {
  desktop.show(a);
  take();
  desktop.show(a);
  EXPECT_EQ(take(), Texts{});
}

TEST_F(DesktopTest, ShowingAVisibleWindowBringsItToTheFront) {
  desktop.show(a);
  desktop.show(b);
  take();
  desktop.show(a);
  EXPECT_EQ(take(), Texts{"a activate"});
  EXPECT_EQ(desktop.active(), &a);
}

TEST_F(DesktopTest, ActingOnAWindowActivatesItOnce) {
  desktop.show(a);
  desktop.show(b);
  take();
  desktop.activate(a);
  desktop.activate(a);
  EXPECT_EQ(take(), Texts{"a activate"});
}

TEST_F(DesktopTest, AHiddenWindowIsNotActivated) {
  desktop.show(a);
  take();
  desktop.activate(b);
  EXPECT_EQ(take(), Texts{});
  EXPECT_EQ(desktop.active(), &a);
}

TEST_F(DesktopTest, HidingTheActiveWindowActivatesTheOneBelow) {
  desktop.show(a);
  desktop.show(b);
  desktop.show(c);
  desktop.activate(a);
  take();
  desktop.hide(a);
  EXPECT_EQ(desktop.active(), &c);
  desktop.hide(c);
  EXPECT_EQ(take(), (Texts{"c activate", "b activate"}));
}

TEST_F(DesktopTest, HidingAnotherWindowActivatesNone) {
  desktop.show(a);
  desktop.show(b);
  take();
  desktop.hide(a);
  EXPECT_EQ(take(), Texts{});
  desktop.hide(a);  // again
  desktop.hide(c);  // never shown
  desktop.hide(b);  // the last one
  EXPECT_EQ(take(), Texts{});
  EXPECT_EQ(desktop.active(), nullptr);
}

TEST_F(DesktopTest, TheViewHearsBeforeTheWindow) {
  const auto tell = [this](const std::string& what) {
    return [this, what](Form& form) { events.push_back("view: " + what + " " + form.name()); };
  };
  desktop.onShow = tell("show");
  desktop.onHide = tell("hide");
  desktop.onActivate = tell("activate");
  desktop.show(a);
  EXPECT_EQ(take(), (Texts{"a load", "view: show a", "view: activate a", "a activate"}));
  desktop.show(b);
  take();
  desktop.show(a);
  EXPECT_EQ(take(), (Texts{"view: activate a", "a activate"}));
  desktop.hide(a);
  EXPECT_EQ(take(), (Texts{"view: hide a", "view: activate b", "b activate"}));
}

TEST_F(DesktopTest, TheCloseButtonAsksTheWindowThenHidesIt) {
  desktop.show(a);
  desktop.show(b);
  take();
  desktop.close(b);
  EXPECT_EQ(take(), (Texts{"b close", "a activate"}));
  EXPECT_FALSE(b.visible());
}

TEST_F(DesktopTest, AModalWindowIsModalUntilItIsHidden) {
  desktop.show(a);
  EXPECT_EQ(desktop.modal(), nullptr);
  desktop.showModal(b, noting("continued"));
  EXPECT_TRUE(b.modal());
  EXPECT_EQ(desktop.modal(), &b);
  take();
  desktop.hide(b);
  EXPECT_FALSE(b.modal());
  EXPECT_EQ(desktop.modal(), nullptr);
  EXPECT_EQ(take(), (Texts{"a activate", "continued"}));
}

TEST_F(DesktopTest, TheContinuationRunsOnce) {
  desktop.showModal(b, noting("continued"));
  desktop.hide(b);
  desktop.show(b);
  take();
  EXPECT_FALSE(b.modal());
  desktop.hide(b);
  EXPECT_EQ(take(), Texts{});
}

TEST_F(DesktopTest, ModalWindowsStack) {
  desktop.show(a);
  desktop.showModal(b, noting("b continued"));
  desktop.showModal(c, noting("c continued"));
  EXPECT_EQ(desktop.modal(), &c);
  take();
  desktop.hide(c);
  EXPECT_EQ(desktop.modal(), &b);
  desktop.close(b);
  EXPECT_EQ(take(), (Texts{"b activate", "c continued", "b close", "a activate", "b continued"}));
}

TEST_F(DesktopTest, AnOuterModalWindowThatGoesFirstKeepsTheInnerOne) {
  desktop.showModal(a, noting("a continued"));
  desktop.showModal(b, noting("b continued"));
  take();
  desktop.hide(a);
  EXPECT_EQ(desktop.modal(), &b);
  EXPECT_EQ(take(), Texts{"a continued"});
}

TEST_F(DesktopTest, AContinuationMayOpenTheNextModalWindow) {
  desktop.showModal(a, [this] { desktop.showModal(a, noting("second")); });
  desktop.hide(a);
  EXPECT_EQ(desktop.modal(), &a);
  take();
  desktop.hide(a);
  EXPECT_EQ(take(), Texts{"second"});
}

TEST_F(DesktopTest, AModalWindowWithoutAContinuationIsFine) {
  desktop.showModal(a, nullptr);
  desktop.hide(a);
  EXPECT_EQ(desktop.modal(), nullptr);
}

TEST_F(DesktopTest, AModalWindowThatCannotLoadLeavesNothingBehind) {
  a.refuses = true;
  EXPECT_EQ(failureOf([&] { desktop.showModal(a, noting("continued")); }), kFileNotFound);
  EXPECT_FALSE(a.modal());
  a.refuses = false;
  desktop.show(a);
  EXPECT_EQ(desktop.modal(), nullptr);
  take();
  desktop.hide(a);
  EXPECT_EQ(take(), Texts{});
}

TEST_F(DesktopTest, TheContinuationRunsEvenIfTheWindowBelowFails) {
  desktop.show(a);
  desktop.showModal(b, noting("continued"));
  take();
  a.failsToActivate = true;
  EXPECT_EQ(failureOf([&] { desktop.hide(b); }), kOverflow);
  EXPECT_EQ(take(), (Texts{"a activate", "continued"}));
  EXPECT_FALSE(b.visible());
}

TEST_F(DesktopTest, CaptionAndSizeAreToldToTheView) {
  int shows = 0;
  a.onShown = [&] { ++shows; };
  a.setCaption("new");
  a.setSize(4500, 3000);
  EXPECT_EQ(shows, 2);
  EXPECT_EQ(a.caption(), "new");
  EXPECT_EQ(a.width(), 4500);
  EXPECT_EQ(a.height(), 3000);
}

}  // namespace
}  // namespace korvane
