#include "desk/wall/Wiring.h"

#include <algorithm>

#include "desk/wall/WallDrawing.h"
#include "output/MatrixCode.h"

namespace korvane {
namespace {

constexpr int kPicture = 560;

// " 3 lamps share a channel."; nothing for none.
std::string lampsThat(std::size_t count, const char* one, const char* several) {
  if (count == 0) return {};
  if (count == 1) return std::string(" 1 lamp ") + one;
  return " " + std::to_string(count) + " lamps " + several;
}

}  // namespace

Wiring::Wiring(Engine& engine, MatrixConf& conf)
    : Form("Wiring", "Wiring"),
      testPanel(engine.timers),
      wall("wall", {kPicture, kPicture, PictureBox::Sizing::Grow},
           {.toolTip = "the lamps with their numbers, and the wire; with the test on, a click "
                       "lights a lamp"}),
      lamp("lamp", {.caption = " "}),
      words("words", {.caption = " "}),
      revert("revert", {.caption = "As it is", .toolTip = "show the wiring that is in force"}),
      apply("apply", {.caption = "Apply", .toolTip = "wire the wall as the picture shows it"}),
      save("save", {.caption = "Save ...", .toolTip = "save the definition of the grid to a file"}),
      closeWindow("close", {.caption = "Close", .toolTip = "end the test and close the window"}),
      engine_(engine),
      conf_(conf) {
  std::vector<Control*> all = planPanel.controls();
  for (Control* control : testPanel.controls()) all.push_back(control);
  add(all);
  add({&wall, &lamp, &words, &revert, &apply, &save, &closeWindow});
  setLayout(column({row({column({planPanel.layout(), space()}),
                         column({Layout(wall, 1), lamp, testPanel.layout()}, 1)},
                        1),
                    row({Layout(words, 1), revert, apply, save, closeWindow})}));
  bind();
  engine.desktop.add(*this);
}

void Wiring::bind() {
  onLoad = [this] { static_cast<Form&>(conf_).load(); };  // which finds the grid
  onActivate = [this] {
    if (!edited_) takeGrid();
  };
  onClose = [this] { testPanel.end(); };
  planPanel.onChange = [this] { planChanged(); };
  testPanel.onChange = [this] { testChanged(); };
  wall.onResize = [this] { draw(); };
  wall.onMouseMove = [this](int x, int y) { pointAt(x, y); };
  wall.onMouseDown = [this](int x, int y) { pressed_ = lampUnder(patch_, wall.raster(), x, y); };
  wall.onClick = [this] { wall_Click(); };
  revert.onClick = [this] { takeGrid(); };
  apply.onClick = [this] { apply_Click(); };
  save.onClick = [this] { conf_.save_Click(); };
  closeWindow.onClick = [this] { engine_.desktop.close(*this); };
}

void Wiring::setPlan(const WiringPlan& plan) {
  planPanel.show(plan);
  planChanged();
}

void Wiring::takeGrid() {
  edited_ = false;
  const ChannelMap& map = engine_.v.channelMap;
  WiringPlan plan = planPanel.plan();
  const bool same = faultOf(plan).empty() && Patch(map).madeFrom(wire(plan));
  const std::optional<WiringPlan> found = same ? plan : planOf(map);
  if (found) {
    plan = *found;
  } else {
    plan.cols = map.codes().cols();
    plan.rows = map.codes().rows();
    plan.panels.reset();
  }
  planPanel.show(plan);
  show(map);
  if (!found) words.setCaption(words.look().caption + " None of the choices above gives this.");
}

void Wiring::planChanged() {
  edited_ = true;
  const WiringPlan plan = planPanel.plan();
  const std::string fault = faultOf(plan);
  apply.setEnabled(fault.empty());
  if (fault.empty()) return show(wire(plan));
  words.setCaption(fault);
}

void Wiring::show(const ChannelMap& map) {
  patch_ = Patch(map);
  words.setCaption(describe(patch_));
  apply.setEnabled(faultOf(planPanel.plan()).empty());
  testPanel.setPatch(patch_);  // which draws
}

void Wiring::testChanged() {
  draw();
  const bool was = testing_;
  testing_ = testPanel.on();
  if (!onTest || (!testing_ && !was)) return;
  onTest(testing_ ? std::optional(testPicture(testPanel.state(), patch_)) : std::nullopt);
}

void Wiring::draw() {
  LitLamps lit;
  if (testPanel.on())
    lit = {litLamps(testPanel.state(), patch_), rgb(litColor(testPanel.state(), patch_))};
  drawWall(wall.canvas(), patch_, lit);
  wall.touched();
}

void Wiring::pointAt(int x, int y) {
  const auto under = lampUnder(patch_, wall.raster(), x, y);
  lamp.setCaption(under ? describe(*under, patch_) : " ");
}

// A stray click must not darken a show: only a test that is on goes to the lamp.
void Wiring::wall_Click() {
  if (pressed_ && testPanel.on()) testPanel.goTo(*pressed_);
}

void Wiring::apply_Click() {
  const ChannelMap map = wire(planPanel.plan());
  takeSize(map.codes().cols(), map.codes().rows());
  Variablen& v = engine_.v;
  v.channelMap = map;
  for (int col = 0; col < v.matrixCols; ++col) {
    for (int row = 0; row < v.matrixRows; ++row) v.cellConfigured.at(col, row) = true;
  }
  v.frameSent.redim(v.matrixCols, v.matrixRows);  // the new channels hold nothing yet
  v.configChanged = true;
  v.quickConfigured = false;
  conf_.redraw_config();
  conf_.OK.click();
  if (onRewired) onRewired();
  if (v.outputActive) sendFrame(engine_);
  takeGrid();
}

// By the lists of the window that defines the grid, as a definition that is loaded: another size
// clears all pictures, the same one leaves them alone.
void Wiring::takeSize(int cols, int rows) {
  static_cast<Form&>(conf_).load();
  conf_.onActivate();  // the lists may show a size of long ago
  conf_.ncol.setEntry(cols);
  conf_.nrow.setEntry(rows);
}

std::string describe(const Patch& patch) {
  const std::size_t dark = patch.withoutChannels().size();
  const std::size_t lamps =
      static_cast<std::size_t>(std::max(0, patch.cols()) * std::max(0, patch.rows())) - dark;
  const int last = patch.lastUniverse();
  const std::string reach = last > 1 ? "universes up to " + std::to_string(last) : "universe 1";
  const std::string wrong =
      lampsThat(patch.sharing().size(), "shares a channel.", "share a channel.") +
      lampsThat(patch.beyond().size(), "lies beyond universe 16 and stays dark.",
                "lie beyond universe 16 and stay dark.") +
      lampsThat(dark, "has no channel and stays dark.", "have no channel and stay dark.");
  return std::to_string(lamps) + (lamps == 1 ? " lamp" : " lamps") +
         (last > 0 ? " in " + reach : "") + "." +
         (wrong.empty() && lamps > 0 ? " Each has channels of its own." : wrong);
}

}  // namespace korvane
