// The slider, the list control and the picture box: what is dragged, edited and painted on.

#include "views/win32/testing/ShownForm.h"

namespace korvane::win32 {
namespace {

class Pointing : public ShownForm {};

TEST_F(Pointing, AKeyMovesASlider) {
  auto& slider = make<Slider>("fader", SliderRange{-100, 100});
  int events = 0;
  slider.onChange = [&events] { ++events; };
  show({&slider});
  press(on(slider), VK_RIGHT);
  EXPECT_EQ(slider.value(), 1);
  EXPECT_EQ(events, 1);
  press(on(slider), VK_END);
  EXPECT_EQ(slider.value(), 100);
  slider.setValue(-40);
  EXPECT_EQ(SendMessageW(on(slider), TBM_GETPOS, 0, 0), -40);
}

TEST_F(Pointing, APressBesideTheHandleTakesItThere) {
  auto& slider = make<Slider>("fader");
  show({&slider});
  RECT area;
  GetClientRect(on(slider), &area);
  mouse(on(slider), WM_LBUTTONDOWN, area.right - 2, area.bottom / 2, MK_LBUTTON);
  EXPECT_EQ(slider.value(), 100);
  mouse(on(slider), WM_MOUSEMOVE, area.right / 2, area.bottom / 2, MK_LBUTTON);
  EXPECT_NEAR(slider.value(), 50, 4);
  mouse(on(slider), WM_LBUTTONUP, area.right / 2, area.bottom / 2);
  EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(Pointing, TheUpperEndOfAnUprightSliderIsItsLargestValue) {
  auto& slider = make<Slider>("red", SliderRange{0, 255, true});
  show({&slider});
  RECT area;
  GetClientRect(on(slider), &area);
  clickAt(on(slider), area.right / 2, 3);
  EXPECT_EQ(slider.value(), 255);
  press(on(slider), VK_DOWN);
  EXPECT_EQ(slider.value(), 254);
}

class Rows : public Pointing {
 protected:
  void SetUp() override {
    list.setColumns({{"Color", 0.5, false, true}, {"Width", 0.5, true}});
    for (const char* width : {"1", "2", "3"}) list.add("|||||", {width}, rgb(255, 0, 0));
    show({&list});
  }
  POINT cell(int row, int col) {
    RECT area{LVIR_BOUNDS, col, 0, 0};
    SendMessageW(on(list), LVM_GETSUBITEMRECT, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&area));
    return {area.left + 8, (area.top + area.bottom) / 2};
  }
  HWND editor() { return FindWindowExW(on(list), nullptr, L"EDIT", nullptr); }

  ListView list{"widths"};
};

TEST_F(Rows, AClickSelectsAndTellsTheCell) {
  std::vector<int> clicked;
  list.onClick = [&clicked](int row, int col) { clicked = {row, col}; };
  const POINT at = cell(2, 1);
  clickAt(on(list), at.x, at.y);
  EXPECT_EQ(clicked, (std::vector<int>{2, 1}));
  EXPECT_EQ(list.selected(), 2);
  EXPECT_EQ(SendMessageW(on(list), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 2);
}

TEST_F(Rows, TheMarkCanBeAbsent) {
  EXPECT_EQ(SendMessageW(on(list), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), -1);
  list.select(1);
  list.unselectAll();
  EXPECT_EQ(SendMessageW(on(list), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), -1);
  EXPECT_EQ(list.current(), 1);
}

TEST_F(Rows, ADoubleClickAndEnterAreOne) {
  int opened = 0;
  list.onDoubleClick = [&opened](int) { ++opened; };
  const POINT at = cell(0, 0);
  mouse(on(list), WM_LBUTTONDBLCLK, at.x, at.y, MK_LBUTTON);
  press(on(list), VK_RETURN);
  EXPECT_EQ(opened, 2);
}

TEST_F(Rows, AKeyThatMovesTheFocusClicksTheRow) {
  list.select(0);
  int clicks = 0;
  list.onClick = [&clicks](int, int) { ++clicks; };
  press(on(list), VK_DOWN);
  EXPECT_EQ(list.selected(), 1);
  EXPECT_EQ(clicks, 1);
}

TEST_F(Rows, ACellIsEditedInItsPlace) {
  std::vector<int> edited;
  list.onEdited = [&edited](int row, int col) { edited = {row, col}; };
  list.onValidate = [](int, const std::string& typed) { return typed + "!"; };
  list.select(1);
  press(on(list), VK_F2);
  ASSERT_NE(editor(), nullptr);
  EXPECT_EQ(windowText(editor()), L"2");
  type(editor(), L"75");
  press(editor(), VK_RETURN);
  EXPECT_EQ(editor(), nullptr);
  EXPECT_EQ(list.cell(1, 1), "75!");
  EXPECT_EQ(edited, (std::vector<int>{1, 1}));
  EXPECT_EQ(GetFocus(), on(list));
}

TEST_F(Rows, EscapeLeavesTheCellAsItWas) {
  list.beginEdit(0, 1);
  ASSERT_NE(editor(), nullptr);
  type(editor(), L"9");
  press(editor(), VK_ESCAPE);
  EXPECT_EQ(editor(), nullptr);
  EXPECT_FALSE(list.editing());
  EXPECT_EQ(list.cell(0, 1), "1");
}

TEST_F(Rows, LeavingTheEditorTakesTheText) {
  list.beginEdit(0, 1);
  type(editor(), L"9");
  SetFocus(on(list));
  EXPECT_EQ(list.cell(0, 1), "9");
}

TEST_F(Rows, ARowThatGoesTakesTheEditorWithIt) {
  list.beginEdit(2, 1);
  list.remove(2);
  EXPECT_EQ(editor(), nullptr);
  EXPECT_EQ(SendMessageW(on(list), LVM_GETITEMCOUNT, 0, 0), 2);
}

class Pictures : public Pointing {
 protected:
  void listen(PictureBox& box) {
    const auto tell = [this](const char* what) {
      return [this, what](int x, int y) {
        told.push_back(what + std::to_string(x) + "," + std::to_string(y));
      };
    };
    box.onMouseDown = tell("down ");
    box.onMouseMove = tell("move ");
    box.onMouseUp = tell("up ");
    box.onClick = [this] { told.emplace_back("click"); };
    box.onDblClick = [this] { told.emplace_back("double"); };
  }
  COLORREF pixel(HWND window, int x, int y) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW);
    const HDC screen = GetDC(window);
    const COLORREF found = GetPixel(screen, x, y);
    ReleaseDC(window, screen);
    return found;
  }
  // Counts how often a window is painted.
  static LRESULT CALLBACK count(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                DWORD_PTR times) {
    if (message == WM_PAINT) ++*reinterpret_cast<int*>(times);
    return DefSubclassProc(window, message, w, l);
  }
  static void paintCells(PictureBox& box, int color) {
    for (int y = 0; y < 50; ++y) {
      for (int x = 0; x < 50; ++x) box.fillRect(x * 2, y * 2, x * 2, y * 2, rgb(color, x, y));
    }
  }
  std::vector<std::string> told;
};

TEST_F(Pictures, TheMouseIsHandedOnInPixelsOfTheBox) {
  auto& box = make<PictureBox>("picture", PictureBox::Size{20, 10, PictureBox::Sizing::Fixed});
  listen(box);
  show({&box});
  RECT area;
  GetClientRect(on(box), &area);
  const int factor = std::min(area.right / 20, area.bottom / 10);
  ASSERT_GE(factor, 2);
  const int left = (area.right - 20 * factor) / 2;
  const int top = (area.bottom - 10 * factor) / 2;
  mouse(on(box), WM_LBUTTONDOWN, left + 3 * factor, top + 2 * factor, MK_LBUTTON);
  EXPECT_EQ(GetCapture(), on(box));
  mouse(on(box), WM_MOUSEMOVE, left + 4 * factor, top + 2 * factor, MK_LBUTTON);
  mouse(on(box), WM_LBUTTONUP, left + 4 * factor, top + 2 * factor);
  EXPECT_EQ(told, (std::vector<std::string>{"down 3,2", "move 4,2", "up 4,2", "click"}));
  EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(Pictures, ADoubleClickIsNoSecondClick) {
  auto& box = make<PictureBox>("picture", PictureBox::Size{20, 10, PictureBox::Sizing::Fixed});
  listen(box);
  show({&box});
  RECT area;
  GetClientRect(on(box), &area);
  const int x = area.right / 2;
  const int y = area.bottom / 2;
  mouse(on(box), WM_LBUTTONDBLCLK, x, y, MK_LBUTTON);
  mouse(on(box), WM_LBUTTONUP, x, y);
  ASSERT_EQ(told.size(), 3U);
  EXPECT_EQ(told[1], "double");
  EXPECT_EQ(told[2].substr(0, 2), "up");
}

TEST_F(Pictures, AReleaseThatWentElsewhereIsMadeUpFor) {
  auto& box = make<PictureBox>("picture", PictureBox::Size{20, 10, PictureBox::Sizing::Fixed});
  show({&box});
  mouse(on(box), WM_LBUTTONDOWN, 5, 5, MK_LBUTTON);
  EXPECT_TRUE(box.buttonHeld());
  mouse(on(box), WM_MOUSEMOVE, 6, 5);
  EXPECT_FALSE(box.buttonHeld());
}

TEST_F(Pictures, PixelsStandSharpOnTheScreen) {
  auto& box = make<PictureBox>("picture", PictureBox::Size{100, 100, PictureBox::Sizing::Grow});
  show({&box});
  RECT area;
  GetClientRect(on(box), &area);
  EXPECT_EQ(box.width(), area.right);
  EXPECT_EQ(box.height(), area.bottom);
  box.fillRect(10, 10, 19, 19, rgb(255, 128, 0));
  pump();
  EXPECT_EQ(pixel(on(box), 9, 10), RGB(0, 0, 0));
  EXPECT_EQ(pixel(on(box), 10, 10), RGB(255, 128, 0));
  EXPECT_EQ(pixel(on(box), 19, 19), RGB(255, 128, 0));
  EXPECT_EQ(pixel(on(box), 20, 19), RGB(0, 0, 0));
}

TEST_F(Pictures, ThousandsOfChangedCellsArePaintedAtOnce) {
  auto& box = make<PictureBox>("picture", PictureBox::Size{120, 120, PictureBox::Sizing::Grow});
  show({&box});
  pump();
  int times = 0;
  SetWindowSubclass(on(box), count, 1, reinterpret_cast<DWORD_PTR>(&times));
  paintCells(box, 10);
  paintCells(box, 20);
  EXPECT_EQ(times, 0) << "not within the event";
  pump();
  EXPECT_EQ(times, 1);
  RemoveWindowSubclass(on(box), count, 1);
  EXPECT_EQ(pixel(on(box), 0, 0), RGB(20, 0, 0));
  EXPECT_EQ(pixel(on(box), 98, 64), RGB(20, 49, 32));
  EXPECT_EQ(pixel(on(box), 97, 64), RGB(0, 0, 0));
}

TEST_F(Pictures, AWindowThatWasHiddenShowsWhatChangedMeanwhile) {
  auto& box = make<PictureBox>("picture", PictureBox::Size{120, 120, PictureBox::Sizing::Grow});
  show({&box});
  pump();
  const HWND window = GetAncestor(on(box), GA_ROOT);
  ShowWindow(window, SW_HIDE);
  paintCells(box, 30);
  pump();
  ShowWindow(window, SW_SHOW);
  pump();
  EXPECT_EQ(pixel(on(box), 4, 6), RGB(30, 2, 3));
  paintCells(box, 40);
  pump();
  EXPECT_EQ(pixel(on(box), 4, 6), RGB(40, 2, 3));
}

TEST_F(Pictures, APartThatIsUncoveredIsPaintedAsItWas) {
  auto& box = make<PictureBox>("picture", PictureBox::Size{120, 120, PictureBox::Sizing::Grow});
  show({&box});
  paintCells(box, 50);
  pump();
  const RECT part{8, 12, 15, 21};
  const HDC screen = GetDC(on(box));
  FillRect(screen, &part, GetSysColorBrush(COLOR_HIGHLIGHT));
  ReleaseDC(on(box), screen);
  InvalidateRect(on(box), &part, FALSE);
  pump();
  for (int y = 10; y < 24; y += 2) {
    for (int x = 6; x < 18; x += 2) EXPECT_EQ(pixel(on(box), x, y), RGB(50, x / 2, y / 2));
  }
}

}  // namespace
}  // namespace korvane::win32
