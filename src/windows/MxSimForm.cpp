#include "windows/MxSimForm.h"

#include <array>
#include <cstdint>

#include "output/MatrixCode.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

constexpr int kEscape = 27;
constexpr int kSpace = 32;
constexpr int kMargins = 10;  // pixels kept free in each direction, at least

// The style word of a window. Of its bits only those of the title bar change here: `framed`.
constexpr std::uint32_t kCaptionBits = 0x00C00000;
constexpr std::uint32_t kOtherBits = 0x160F0000;  // visible, clipping, system menu, sizable

std::uint32_t style(const Form& form) { return kOtherBits | (form.framed ? kCaptionBits : 0); }

// Stores a style word and answers the one before.
std::uint32_t setStyle(Form& form, std::uint32_t value) {
  const std::uint32_t before = style(form);
  form.framed = (value & kCaptionBits) == kCaptionBits;
  return before;
}

}  // namespace

MxSimForm::MxSimForm(Engine& engine, CheckBox& mxsim_active)
    : Form("MxSimForm", "MxSim - toggle ViewMode with <space>, close with <ESC>"),
      engine_(engine),
      mxsim_active_(mxsim_active) {
  surface = &engine.sim;
  onLoad = [this] { Form_Resize(); };
  onKeyPress = [this](int key) { Form_KeyPress(key); };
  engine.sim.onResize = [this] {
    if (loaded()) Form_Resize();
  };
  engine.desktop.add(*this);
  // The frame's close button has no handler: `simActive` and the check box stay set, and further
  // drawing goes to a window that nobody sees (docs/kept.md, simulation-close).
}

void MxSimForm::fitGrid() {
  Variablen& v = engine_.v;
  const int width = engine_.sim.width();
  const int height = engine_.sim.height();
  v.simCellW = toInt16(divTrunc(width - kMargins, v.matrixCols));
  v.simCellH = toInt16(divTrunc(height - kMargins, v.matrixRows));
  v.simLeft = toInt16(divTrunc(width - v.simCellW * v.matrixCols, 2));
  v.simTop = toInt16(divTrunc(height - v.simCellH * v.matrixRows, 2));
}

// The repaint must not be interrupted by a step of a generator.
void MxSimForm::Form_Resize() {
  Variablen& v = engine_.v;
  const std::array<Timer*, 4> timers = {&v.A.timer1, &v.A.timer2, &v.B.timer1, &v.B.timer2};
  std::array<bool, 4> running{};
  for (std::size_t i = 0; i < timers.size(); ++i) {
    running[i] = timers[i]->enabled();
    timers[i]->disable();
  }
  fitGrid();
  engine_.sim.clear();
  simDrawFrame(engine_);
  for (std::size_t i = 0; i < timers.size(); ++i) {
    if (running[i]) timers[i]->enable();
  }
}

bool MxSimForm::ToggleCaption(bool value) {
  const std::uint32_t wanted = value ? style(*this) | kCaptionBits : style(*this) & ~kCaptionBits;
  const bool taken = setStyle(*this, wanted) != 0 && style(*this) == wanted;
  shown();  // the window system draws the new frame
  return taken;
}

void MxSimForm::Form_KeyPress(int key) {
  Variablen& v = engine_.v;
  if (key == kEscape) {
    mxsim_active_.setValue(0);
    v.simActive = false;
    engine_.desktop.hide(*this);
  } else if (key == kSpace) {
    const bool fullScreen = v.simOpen;
    ToggleCaption(fullScreen);
    maximized = !fullScreen;
    v.simOpen = !fullScreen;
    shown();
    Form_Resize();
  }
}

}  // namespace korvane
