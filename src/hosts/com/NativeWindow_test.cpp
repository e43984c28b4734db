// The component's real windows in a desk: pressed by posted messages, fed by the desk's message
// loop.

#include "hosts/com/ComTest.h"
#include "views/win32/testing/ShownForm.h"

namespace korvane {
namespace {

using win32::pump;
using win32::pumpUntil;

struct Search {
  std::wstring mark;
  HWND found = nullptr;
};

BOOL CALLBACK examine(HWND window, LPARAM argument) {
  auto* search = reinterpret_cast<Search*>(argument);
  if (GetPropW(window, search->mark.c_str()) != nullptr) search->found = window;
  if (search->found == nullptr) EnumChildWindows(window, examine, argument);
  return search->found == nullptr ? TRUE : FALSE;
}

// The window of a form or of one of its controls, nullptr if there is none.
HWND windowOf(const wchar_t* name) {
  Search search{std::wstring(L"Korvane.") + name};
  EnumThreadWindows(GetCurrentThreadId(), examine, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

class NativeWindow : public ComTest {
 protected:
  NativeWindow() { EXPECT_EQ(window->Show(), S_OK); }

  void press(const wchar_t* control) {
    const HWND button = windowOf(control);
    ASSERT_NE(button, nullptr) << "no window for a control";
    PostMessageW(button, BM_CLICK, 0, 0);
    pump();
  }
  std::string value(const std::string& name) { return run(*window.Get(), "value " + name); }

  ComPtr<::ITharnPlugin> plugIn = create();
  ComPtr<IToolWindow> window = tool(*plugIn.Get());
};

TEST_F(NativeWindow, IsOnTheScreenWhenTheDeskShowsIt) {
  EXPECT_TRUE(IsWindowVisible(windowOf(L"MatrixForm")));
  EXPECT_EQ(window->Hide(), S_OK);
  EXPECT_FALSE(IsWindowVisible(windowOf(L"MatrixForm")));
}

TEST_F(NativeWindow, PostedClicksPressItsButtons) {
  press(L"addA");
  press(L"addB");
  press(L"addB");
  EXPECT_EQ(value("efxACount"), R"({"ok":true,"value":2})");
  EXPECT_EQ(value("efxBCount"), R"({"ok":true,"value":3})");
  press(L"Closeall");
  EXPECT_FALSE(IsWindowVisible(windowOf(L"MatrixForm")));
}

TEST_F(NativeWindow, TheMessageLoopOfTheDeskRunsAFade) {
  press(L"AutoFadeB");
  EXPECT_EQ(value("fadeRunning"), R"({"ok":true,"value":true})");
  EXPECT_TRUE(pumpUntil([this] { return value("fadeRunning") == R"({"ok":true,"value":false})"; }));
  EXPECT_NE(value("masterValue").find("\"value\":1"), std::string::npos) << value("masterValue");
}

TEST_F(NativeWindow, GoesWithTheLastObject) {
  const HWND main = windowOf(L"MatrixForm");
  window.Reset();
  plugIn.Reset();
  pump();
  EXPECT_FALSE(IsWindow(main));
}

}  // namespace
}  // namespace korvane
