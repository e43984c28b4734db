#include "desk/wall/TestPanel.h"

#include <algorithm>
#include <array>

#include "platform/Text.h"

namespace korvane {
namespace {

struct Pace {
  const char* name;
  std::int32_t milliseconds;
};
constexpr std::array<Pace, 6> kPaces = {{{"20 a second", 50},
                                         {"5 a second", 200},
                                         {"2 a second", 500},
                                         {"each second", 1000},
                                         {"every 2 seconds", 2000},
                                         {"every 5 seconds", 5000}}};
constexpr int kFirstPace = 3;

}  // namespace

TestPanel::TestPanel(TimerQueue& timers)
    : testGroup("testGroup", {.caption = "Lamp test"}),
      test("test", {.caption = "Test",
                    .toolTip = "light what is chosen below, straight to the outputs: past grand "
                               "master, blackout and curves"}),
      what("testWhat", {.toolTip = "what is lit at a time", .label = "Light : "}),
      light("testLight",
            {.toolTip = "the colour; in turn: red, green, blue, white", .label = "Colour : "}),
      at("testAt",
         {.toolTip = "which one, counted along the wire; Enter goes there", .label = "Number : "},
         "1", {.commit = TextBoxStyle::Commit::OnLeave}),
      previous("previous", {.caption = "Back", .toolTip = "one step back"}),
      next("next", {.caption = "Next", .toolTip = "one step on"}),
      byItself("byItself", {.caption = "By itself", .toolTip = "steps on without a hand"}),
      pace("pace", {.toolTip = "how fast it steps by itself"}),
      testWords("testWords", {.caption = " "}),
      timer_(timers, "lampTest") {
  what.setItems({"one channel", "one lamp", "a row", "a column", "a universe", "the whole wall"});
  light.setItems({"white", "red", "green", "blue", "in turn"});
  std::vector<std::string> paces;
  paces.reserve(std::size(kPaces));
  for (const Pace& each : kPaces) paces.emplace_back(each.name);
  pace.setItems(paces);
  pace.setIndex(kFirstPace);
  what.setIndex(static_cast<int>(state_.what));
  light.setIndex(static_cast<int>(state_.light));
  bind();
}

void TestPanel::bind() {
  test.onClick = [this] { switched(); };
  what.onClick = [this] { chosen(); };
  light.onClick = [this] { chosen(); };
  at.onChange = [this] { typed(); };
  previous.onClick = [this] { take(stepped(state_, patch_, true)); };
  next.onClick = [this] { take(stepped(state_, patch_)); };
  byItself.onClick = [this] { run(); };
  pace.onClick = [this] { run(); };
  timer_.onTimer = [this] { take(stepped(state_, patch_)); };
}

void TestPanel::setPatch(const Patch& patch) {
  patch_ = patch;
  take(state_);
}

void TestPanel::goTo(const LampAt& lamp) {
  const auto found = std::find(patch_.wire().begin(), patch_.wire().end(), lamp);
  if (found == patch_.wire().end()) return;
  filling_ = true;
  what.setIndex(static_cast<int>(LampTest::What::Lamp));
  filling_ = false;
  LampTest state = state_;
  state.what = LampTest::What::Lamp;
  state.at = static_cast<int>(found - patch_.wire().begin());
  take(state);
}

// A place beyond the last one means that.
void TestPanel::take(const LampTest& state) {
  state_ = state;
  state_.at = std::clamp(state_.at, 0, placesOf(state_.what, patch_) - 1);
  filling_ = true;
  at.setText(std::to_string(state_.at + 1));
  filling_ = false;
  testWords.setCaption(on() ? describe(state_, patch_) : " ");
  if (onChange) onChange();
}

void TestPanel::chosen() {
  if (filling_) return;
  LampTest state{.what = static_cast<LampTest::What>(what.index()),
                 .light = static_cast<LampTest::Light>(light.index())};
  if (state.what == state_.what) state.at = state_.at;
  take(state);
}

// What is no number leaves the place as it was.
void TestPanel::typed() {
  if (filling_) return;
  LampTest state = state_;
  if (const auto number = parseNumber(at.text(), {}))
    state.at = static_cast<int>(std::clamp(*number, 1.0, 1.0 * kLastWallCode)) - 1;
  take(state);
}

void TestPanel::switched() {
  run();
  take(state_);
}

void TestPanel::run() {
  timer_.disable();
  if (!on() || !byItself.checked()) return;
  timer_.setInterval(kPaces.at(static_cast<std::size_t>(pace.index())).milliseconds);
  timer_.enable();
}

std::vector<Control*> TestPanel::controls() {
  return {&testGroup, &test, &what, &light, &at, &previous, &next, &byItself, &pace, &testWords};
}

Layout TestPanel::layout() {
  return boxed(testGroup, column({row({test, what, light, space(), byItself, pace}),
                                  row({at, previous, next, Layout(testWords, 1)})}));
}

}  // namespace korvane
