// The clock, the message boxes and the dialogs of the machine.

#include <vector>

#include "views/win32/machine/FileDialog.h"
#include "views/win32/machine/WinPlatform.h"
#include "views/win32/testing/ShownForm.h"

namespace korvane::win32 {
namespace {

class Gates : public testing::Test {
 protected:
  HeadlessPlatform platform;
  TimerQueue timers;
  Timer timer{timers, "timer"};
  LoopGate gate{platform, timers};
};

TEST_F(Gates, TheMessageLoopFeedsTheTimers) {
  int ticks = 0;
  timer.setInterval(20);
  timer.onTimer = [&ticks] { ++ticks; };
  const ULONGLONG start = GetTickCount64();
  gate.run([this] { timer.enable(); });
  ASSERT_TRUE(pumpUntil([&ticks] { return ticks >= 5; }));
  EXPECT_GE(GetTickCount64() - start, 90U);
}

// A desk's call may start a timer without passing the gate.
TEST_F(Gates, ATimerThatIsStartedFromOutsideCountsFromNow) {
  bool rang = false;
  timer.setInterval(100);
  timer.onTimer = [&rang] { rang = true; };
  pumpUntil([start = GetTickCount64()] { return GetTickCount64() - start > 300; });
  const ULONGLONG start = GetTickCount64();
  timer.enable();
  ASSERT_TRUE(pumpUntil([&rang] { return rang; }));
  EXPECT_GE(GetTickCount64() - start, 85U) << "the time that had passed before was counted";
}

TEST_F(Gates, TimeThatAScriptMovedAheadGoesOnFromThere) {
  int ticks = 0;
  timer.setInterval(50);
  timer.onTimer = [&ticks] { ++ticks; };
  timer.enable();
  timers.advanceTo(timers.now() + 1000, [](const std::function<void()>& tick) { tick(); });
  EXPECT_EQ(ticks, 20);
  EXPECT_TRUE(pumpUntil([&ticks] { return ticks > 20; }));
}

TEST_F(Gates, AFailingTickIsReportedEachTimeAndTheTimersGoOn) {
  timer.setInterval(10);
  timer.onTimer = [] { throw Failure(kOverflow); };
  gate.run([this] { timer.enable(); });
  EXPECT_TRUE(pumpUntil([this] { return platform.failures.size() >= 3; }));
}

// Closes the first message box that opens, and says what it read there.
struct BoxAnswerer {
  BoxAnswerer() {
    current = this;
    timer = SetTimer(nullptr, 0, 20, answer);
  }
  ~BoxAnswerer() { KillTimer(nullptr, timer); }
  BoxAnswerer(const BoxAnswerer&) = delete;
  BoxAnswerer& operator=(const BoxAnswerer&) = delete;

  static void CALLBACK answer(HWND, UINT, UINT_PTR, DWORD) {
    const HWND box = FindWindowW(L"#32770", L"Korvane");
    if (box == nullptr) return;
    current->text = windowText(GetDlgItem(box, 0xFFFF));
    current->ownerEnabled = IsWindowEnabled(current->watched);
    PostMessageW(box, WM_COMMAND, IDOK, 0);
  }

  static inline BoxAnswerer* current = nullptr;
  UINT_PTR timer = 0;
  HWND watched = nullptr;
  BOOL ownerEnabled = TRUE;
  std::wstring text;
};

BOOL CALLBACK findTimes(HWND child, LPARAM found) {
  if (GetPropW(child, L"Korvane.times")) *reinterpret_cast<HWND*>(found) = child;
  return TRUE;
}

class Machines : public ShownForm {
 protected:
  WinPlatform machine;
};

TEST_F(Machines, AMessageBoxWaitsAndTheWindowsWaitWithIt) {
  auto& button = make<Button>("go", Look{.caption = "Go"});
  FormWindow& window = show({&button});
  BoxAnswerer answerer;
  answerer.watched = window.window();
  machine.messageBox(
      "Gr\xC3\xBC\xC3\x9F"
      "e");
  EXPECT_EQ(answerer.text, L"Gr\u00FC\u00DFe");
  EXPECT_FALSE(answerer.ownerEnabled);
  EXPECT_TRUE(IsWindowEnabled(window.window()));
}

TEST_F(Machines, AFailureThatComesAgainCountsUpInOneBox) {
  const auto boxes = [] {
    int count = 0;
    for (HWND box = nullptr; (box = FindWindowExW(nullptr, box, kFormClass, L"Korvane"));) ++count;
    return count;
  };
  for (int i = 0; i < 5; ++i) machine.failed(Failure(kOverflow));
  machine.failed(Failure(kCancelled));
  pump();
  EXPECT_EQ(boxes(), 1);
  const HWND box = FindWindowW(kFormClass, L"Korvane");
  HWND times = nullptr;
  EnumChildWindows(box, findTimes, reinterpret_cast<LPARAM>(&times));
  EXPECT_EQ(windowText(times), L"5 times so far");
  machine.failed(Failure(kSubscript));
  EXPECT_EQ(boxes(), 1);
}

TEST_F(Machines, TellsTheTimeOfTheDayAndTheSeparators) {
  EXPECT_GE(machine.timeOfDay(), 0);
  EXPECT_LT(machine.timeOfDay(), 24 * 3600 * 1000);
  const NumberFormat format = machine.numberFormat();
  EXPECT_TRUE(format.decimal == '.' || format.decimal == ',');
  EXPECT_NE(format.decimal, format.thousands);
}

TEST(DialogFilters, HaveANullAfterEachPart) {
  EXPECT_EQ(toDialogFilter("Matrix (*.x)|*.x"), std::wstring(L"Matrix (*.x)\0*.x\0\0", 18));
  EXPECT_EQ(toDialogFilter(""), L"");
}

}  // namespace
}  // namespace korvane::win32
