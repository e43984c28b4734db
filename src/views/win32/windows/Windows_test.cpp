// A whole plug-in on the screen, and what its windows do among themselves.

#include <array>

#include "testing/ShownChoices.h"
#include "views/win32/View.h"
#include "views/win32/testing/ShownForm.h"

namespace korvane::win32 {
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

TEST_F(OpenWindows, TheChoiceOfTheEntryThatAListShowsCounts) {
  const auto chooseShown = [this](ListBox& list) {
    SendMessageW(on(list), CB_SHOWDROPDOWN, TRUE, 0);
    press(on(list), VK_RETURN);
    EXPECT_EQ(SendMessageW(on(list), CB_GETDROPPEDSTATE, 0, 0), 0);
  };
  expectShownChoicesToCount(engine, chooseShown);
}

TEST_F(OpenWindows, AListThatIsShutWithoutAChoiceChoosesNothing) {
  v.A.frame.fill({0, 255, 0});
  SendMessageW(on(v.A.type), CB_SHOWDROPDOWN, TRUE, 0);
  press(on(v.A.type), VK_ESCAPE);
  press(on(v.A.type), VK_UP);  // from the first entry there is no way up
  EXPECT_EQ(rgb(v.A.frame.at(0, 0)), rgb(0, 255, 0));
}

// What a hand does, in the orders in which Windows sends it: down, up, double click, up, moves in
// between. The detail window opens at the double click; the last release comes to the picture while
// it holds the pointer, and goes elsewhere if it does not.
class LampByHand : public OpenWindows, public testing::WithParamInterface<int> {
 protected:
  enum class Last { Captured, MovedAndCaptured, Lost };

  void configureLamp(int col, int row, Last last) {
    const HWND picture = on(conf.mxbild);
    RECT area;
    GetClientRect(picture, &area);
    const int cell = conf.mxbild.width() / GetParam();
    const int x = (area.right - conf.mxbild.width()) / 2 + col * cell + cell / 2;
    const int y = (area.bottom - conf.mxbild.height()) / 2 + row * cell + cell / 2;
    mouse(picture, WM_MOUSEMOVE, x - 1, y);
    mouse(picture, WM_LBUTTONDOWN, x, y, MK_LBUTTON);
    mouse(picture, WM_MOUSEMOVE, x, y, MK_LBUTTON);
    mouse(picture, WM_LBUTTONUP, x, y);
    mouse(picture, WM_LBUTTONDBLCLK, x, y, MK_LBUTTON);
    ASSERT_TRUE(IsWindowVisible(window(conf.detail)));
    EXPECT_FALSE(IsWindowEnabled(window(conf)));
    EXPECT_EQ(GetCapture(), picture);
    if (last == Last::MovedAndCaptured) mouse(picture, WM_MOUSEMOVE, x + 1, y, MK_LBUTTON);
    if (last == Last::Lost) ReleaseCapture();
    if (last != Last::Lost) mouse(picture, WM_LBUTTONUP, x + 1, y);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(v.cellCol, col);
    EXPECT_EQ(v.cellRow, row);
    PostMessageW(on(conf.detail.setConfig), BM_CLICK, 0, 0);
    pump();
    EXPECT_FALSE(conf.detail.visible());
    mouse(picture, WM_MOUSEMOVE, x, y);
    EXPECT_FALSE(conf.mxbild.buttonHeld());
    EXPECT_EQ(takeFailure(), 0);
  }

  MatrixConf& conf = plugin.matrixConf;
};

TEST_P(LampByHand, IsTheOneThatWasDoubleClickedHoweverTheButtonComesUp) {
  const int last = GetParam() - 1;
  view->gate.run([this] { plugin.plugIn.ITharnPlugin_Configure(); });
  choose(conf.ncol, last);
  choose(conf.nrow, last);
  SetWindowPos(window(conf), nullptr, 0, 0, 700, 800, SWP_NOZORDER);
  pump();
  configureLamp(2, 3, Last::Captured);
  configureLamp(0, 1, Last::MovedAndCaptured);
  configureLamp(last, last, Last::Lost);
  EXPECT_EQ(v.channelMap.at(2, 3), (ChannelMap::Codes{2, 3, 4}));
  EXPECT_EQ(v.channelMap.at(0, 1), (ChannelMap::Codes{5, 6, 7}));
  EXPECT_EQ(v.channelMap.at(last, last), (ChannelMap::Codes{8, 9, 10}));
  PostMessageW(on(conf.OK), BM_CLICK, 0, 0);
  pump();
  EXPECT_FALSE(conf.visible());
}

INSTANTIATE_TEST_SUITE_P(Grid, LampByHand, testing::Values(12, 50));

LOGFONTW fontOf(HWND window) {
  LOGFONTW font{};
  GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font, &font);
  return font;
}

TEST_F(OpenWindows, ListsAreInVerdana) {
  for (const ListView* list : {&v.A.efxList, &v.B.efxList, &master.efxXList})
    EXPECT_STREQ(fontOf(on(*list)).lfFaceName, L"Verdana");
}

// What the system sends when a window comes to a monitor of another scale.
class Monitors : public OpenWindows {
 protected:
  void moveTo(int dpi, RECT place) {
    constexpr UINT kDpiChanged = 0x02E0;
    SendMessageW(main, kDpiChanged, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&place));
    pump();
  }
  RECT place(HWND child) const {
    RECT found;
    GetWindowRect(child, &found);
    return found;
  }
  LONG width(HWND child) const { return place(child).right - place(child).left; }

  HWND main = window(plugin.matrixForm);
};

TEST_F(Monitors, OfTwiceTheScaleGetTypeAndControlsOfTwiceTheSize) {
  const RECT before = place(main);
  const HWND list = on(v.A.efxList);
  const HWND button = on(plugin.matrixForm.panelA.edit);
  const LONG listType = fontOf(list).lfHeight;
  const LONG buttonType = fontOf(button).lfHeight;
  const LONG iconWidth = width(on(plugin.matrixForm.addX));
  const RECT wanted{0, 0, 2 * (before.right - before.left), 2 * (before.bottom - before.top)};
  moveTo(192, wanted);
  EXPECT_EQ(place(main).left, wanted.left);
  EXPECT_EQ(place(main).top, wanted.top);
  MINMAXINFO limits{};
  limits.ptMaxTrackSize.x = GetSystemMetrics(SM_CXMAXTRACK);
  SendMessageW(main, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
  EXPECT_EQ(width(main),
            std::max(limits.ptMinTrackSize.x, std::min(wanted.right, limits.ptMaxTrackSize.x)))
      << "as wide as was asked for, within what the screen and the controls allow";
  EXPECT_EQ(fontOf(list).lfHeight, 2 * listType);
  EXPECT_STREQ(fontOf(list).lfFaceName, L"Verdana") << "the font of a list stays its own";
  EXPECT_EQ(fontOf(button).lfHeight, 2 * buttonType);
  EXPECT_EQ(width(on(plugin.matrixForm.addX)), 2 * iconWidth);
  EXPECT_EQ(v.A.picture.width(), v.A.picture.height());
  EXPECT_EQ(v.A.picture.width(),
            std::min<LONG>(width(on(v.A.picture)),
                           place(on(v.A.picture)).bottom - place(on(v.A.picture)).top));
  moveTo(96, before);
  EXPECT_TRUE(EqualRect(&before, std::array{place(main)}.data()));
  EXPECT_EQ(fontOf(list).lfHeight, listType);
  EXPECT_EQ(fontOf(button).lfHeight, buttonType);
  EXPECT_EQ(width(on(plugin.matrixForm.addX)), iconWidth);
}

TEST_F(Monitors, ChangeNothingUnderAnOpenEditor) {
  view->gate.run([this] { v.A.efxList.setColumns({{"Name", 0.5, true}, {"efxA", 0.5}}); });
  view->gate.run([this] { v.A.efxList.beginEdit(0, 0); });
  const HWND editor = FindWindowExW(on(v.A.efxList), nullptr, L"EDIT", nullptr);
  ASSERT_NE(editor, nullptr);
  win32::type(editor, L"half typed");
  const LONG before = width(editor);
  const RECT wanted{0, 0, 2 * width(main), 1000};
  moveTo(192, wanted);
  ASSERT_TRUE(IsWindow(editor));
  EXPECT_EQ(windowText(editor), L"half typed");
  EXPECT_GT(width(editor), before);
  EXPECT_STREQ(fontOf(editor).lfFaceName, L"Verdana");
  press(editor, VK_RETURN);
  EXPECT_EQ(v.A.efxList.cell(0, 0), "half typed");
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
}  // namespace korvane::win32
