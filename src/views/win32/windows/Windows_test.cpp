// A whole plug-in on the screen, and what its windows do among themselves.

#include "testing/TestPlugin.h"
#include "views/win32/View.h"
#include "views/win32/testing/ShownForm.h"

namespace korvane {
namespace {

class OpenWindows : public TestPlugin {
 protected:
  OpenWindows() {
    view->gate.run([this] { engine.desktop.show(plugin.matrixForm); });
    pump();
  }
  HWND window(Form& form) { return view->desktop.window(form).window(); }
  HWND on(const Control& control) {
    return view->desktop.window(*control.form).widget(control)->window();
  }

  std::unique_ptr<WinView> view = std::make_unique<WinView>(engine);
};

TEST_F(OpenWindows, TheFrameOfTheMainWindowHidesIt) {
  ASSERT_TRUE(IsWindowVisible(window(plugin.matrixForm)));
  PostMessageW(window(plugin.matrixForm), WM_CLOSE, 0, 0);
  pump();
  EXPECT_FALSE(plugin.matrixForm.visible());
  EXPECT_FALSE(IsWindowVisible(window(plugin.matrixForm)));
  EXPECT_TRUE(IsWindow(window(plugin.matrixForm)));
}

TEST_F(OpenWindows, AKeyOnTheMasterFaderMixes) {
  engine.v.A.frame.fill({255, 0, 0});
  engine.v.B.frame.fill({0, 0, 255});
  press(on(engine.master.faderM), VK_HOME);
  const Rgb one = engine.v.frameM.at(0, 0);
  press(on(engine.master.faderM), VK_END);
  const Rgb other = engine.v.frameM.at(0, 0);
  EXPECT_EQ(one, (Rgb{255, 0, 0}));
  EXPECT_EQ(other, (Rgb{0, 0, 255}));
}

TEST_F(OpenWindows, AModalWindowIsTheOnlyOneThatCanBeActedOn) {
  MxColorMixer& mixer = plugin.dialogs.mixer;
  bool closed = false;
  view->gate.run([&] { engine.desktop.showModal(mixer, [&closed] { closed = true; }); });
  pump();
  EXPECT_FALSE(IsWindowEnabled(window(plugin.matrixForm)));
  EXPECT_TRUE(IsWindowEnabled(window(mixer)));
  EXPECT_FALSE(closed);
  PostMessageW(window(mixer), WM_CLOSE, 0, 0);
  pump();
  EXPECT_TRUE(closed);
  EXPECT_TRUE(IsWindowEnabled(window(plugin.matrixForm)));
  EXPECT_EQ(GetActiveWindow(), window(plugin.matrixForm));
}

TEST_F(OpenWindows, AWindowStaysAboveTheMainOne) {
  view->gate.run([this] { engine.desktop.show(plugin.matrixHelp); });
  EXPECT_EQ(GetWindow(window(plugin.matrixHelp), GW_OWNER), window(plugin.matrixForm));
  view->gate.run([this] { engine.desktop.show(plugin.mxSimForm); });
  EXPECT_EQ(GetWindow(window(plugin.mxSimForm), GW_OWNER), nullptr);
}

TEST_F(OpenWindows, TheSimulationFillsTheScreenAndComesBack) {
  PostMessageW(on(plugin.matrixForm.mxsim_active), BM_CLICK, 0, 0);
  pump();
  const HWND sim = window(plugin.mxSimForm);
  ASSERT_TRUE(IsWindowVisible(sim));
  press(sim, VK_SPACE);
  EXPECT_EQ(GetWindowLongW(sim, GWL_STYLE) & WS_CAPTION, 0);
  RECT area;
  GetClientRect(sim, &area);
  EXPECT_EQ(area.right, GetSystemMetrics(SM_CXSCREEN));
  EXPECT_EQ(area.bottom, GetSystemMetrics(SM_CYSCREEN));
  EXPECT_EQ(engine.sim.width(), area.right);
  press(sim, VK_SPACE);
  EXPECT_EQ(GetWindowLongW(sim, GWL_STYLE) & WS_CAPTION, WS_CAPTION);
  press(sim, VK_ESCAPE);
  EXPECT_FALSE(IsWindowVisible(sim));
  EXPECT_EQ(plugin.matrixForm.mxsim_active.value(), 0);
}

TEST_F(OpenWindows, TheNarrowViewGivesTheListsPlaceUp) {
  RECT full;
  GetWindowRect(window(plugin.matrixForm), &full);
  view->gate.run([this] { plugin.plugIn.ITharnPlugin_MessageHandle(31, 1, 0); });
  pump();
  RECT narrow;
  GetWindowRect(window(plugin.matrixForm), &narrow);
  EXPECT_LT(narrow.right - narrow.left, full.right - full.left);
  view->gate.run([this] { plugin.plugIn.ITharnPlugin_MessageHandle(31, 0, 0); });
  pump();
  GetWindowRect(window(plugin.matrixForm), &narrow);
  EXPECT_EQ(narrow.right - narrow.left, full.right - full.left);
}

TEST_F(OpenWindows, NoControlIsCutOffAtTheLeastSize) {
  for (Form* form : engine.desktop.forms()) {
    if (form->surface != nullptr) continue;
    view->gate.run([&] { engine.desktop.show(*form); });
    SetWindowPos(window(*form), nullptr, 0, 0, 1, 1, SWP_NOMOVE | SWP_NOZORDER);
    pump();
    for (const Control* control : form->controls()) {
      const Widget& widget = *view->desktop.window(*form).widget(*control);
      RECT place;
      RECT around;
      GetWindowRect(widget.window(), &place);
      GetClientRect(window(*form), &around);
      MapWindowPoints(window(*form), nullptr, reinterpret_cast<POINT*>(&around), 2);
      if (!IsWindowVisible(widget.window()) || place.right == place.left) continue;
      EXPECT_TRUE(place.left >= around.left && place.right <= around.right &&
                  place.top >= around.top && place.bottom <= around.bottom)
          << form->name() << "." << control->name();
    }
    view->gate.run([&] { engine.desktop.hide(*form); });
  }
}

TEST_F(OpenWindows, NothingIsLeftOfTheView) {
  const HWND main = window(plugin.matrixForm);
  view = nullptr;
  EXPECT_FALSE(IsWindow(main));
  WNDCLASSW type;
  EXPECT_FALSE(GetClassInfoW(moduleHandle(), kFormClass, &type));
  EXPECT_FALSE(GetClassInfoW(moduleHandle(), kPictureClass, &type));
  EXPECT_EQ(engine.timers.onCount, nullptr);
  EXPECT_TRUE(event([this] { engine.desktop.show(plugin.matrixHelp); }));
}

class Tabbing : public ShownForm {};

TEST_F(Tabbing, GoesRoundTheControlsInTheirDeclaredOrder) {
  auto& first = make<Button>("first", Look{.caption = "first"});
  auto& label = make<Label>("label", Look{.caption = "label"});
  auto& second = make<TextBox>("second");
  auto& hidden = make<CheckBox>("hidden", Look{.caption = "hidden", .visible = false});
  auto& third = make<Slider>("third");
  show({&first, &label, &second, &hidden, &third});
  SetFocus(on(first));
  press(GetFocus(), VK_TAB);
  EXPECT_EQ(GetFocus(), on(second));
  press(GetFocus(), VK_TAB);
  EXPECT_EQ(GetFocus(), on(third));
  press(GetFocus(), VK_TAB);
  EXPECT_EQ(GetFocus(), on(first));
}

TEST_F(Tabbing, AControlThatIsDisabledGivesTheFocusOn) {
  auto& first = make<Button>("first", Look{.caption = "first"});
  auto& second = make<Button>("second", Look{.caption = "second"});
  show({&first, &second});
  SetFocus(on(first));
  first.setEnabled(false);
  EXPECT_EQ(GetFocus(), on(second));
}

TEST_F(Tabbing, AWindowThatComesBackHasTheFocusWhereItWas) {
  auto& first = make<Button>("first", Look{.caption = "first"});
  auto& second = make<Button>("second", Look{.caption = "second"});
  FormWindow& window = show({&first, &second});
  PlainForm other("other", {});
  desktop.add(other);
  SetFocus(on(second));
  desktop.show(other);
  desktop.hide(other);
  pump();
  EXPECT_EQ(GetActiveWindow(), window.window());
  EXPECT_EQ(GetFocus(), on(second));
  view.reset();
}

}  // namespace
}  // namespace korvane
