#include "playback/MasterFade.h"

#include <algorithm>

#include "output/Preview.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "playback/FadeList.h"
#include "playback/FadeSteps.h"

namespace korvane {
namespace {

constexpr std::int16_t kTowardsA = -1;
constexpr std::int16_t kTowardsB = 1;
// In ms: every fade starts with 20 frames a second (docs/kept.md, fade-refresh).
constexpr std::int32_t kFadeRefresh = 50;

bool movesWholePicture(std::int16_t type) { return type < kRandom || type == kAdd; }

// Steps done where the slider stands, reckoned with the steps of the fade before (docs/kept.md,
// fade-start).
std::int32_t stepOfSlider(const Engine& engine) {
  const Variablen& v = engine.v;
  const std::int32_t fromA =
      floorToInt32((engine.master.faderM.value() + 100.0) * v.fadeSteps / 200);
  return v.fadeDirection == kTowardsB ? fromA : v.fadeSteps - fromA;
}

std::int16_t smoothSteps(double seconds) {
  if (seconds <= 1) return 10;
  return seconds <= 3 ? 30 : 50;
}

void setUpCells(Engine& engine) {
  Variablen& v = engine.v;
  v.fadeSteps = mul16(v.matrixCols, v.matrixRows);
  const bool hasWay = v.fadeDirection == kTowardsA ? v.masterValue >= 0.5 : v.masterValue <= 0.5;
  if (!hasWay) {
    v.fadeStep = v.fadeSteps;  // ends at the first tick
    return;
  }
  engine.randomize();
  v.fadeOrder = shuffled(engine.random, v.fadeSteps);
}

void setUpLines(Variablen& v, std::int16_t lines) {
  v.fadeSteps = lines;
  const bool arrived = v.fadeDirection == kTowardsA ? v.masterValue < 0.5 : v.masterValue > 0.5;
  if (arrived) v.fadeStep = v.fadeSteps;
}

void setUpSteps(Engine& engine) {
  Variablen& v = engine.v;
  switch (selectedFade(engine).type) {
    case kRandom:
    case kFlowDown:
    case kFillUp:
      return setUpCells(engine);
    case kScrollUp:
    case kScrollDown:
      return setUpLines(v, v.matrixRows);
    case kScrollLeft:
    case kScrollRight:
      return setUpLines(v, v.matrixCols);
    default:
      v.fadeSteps = smoothSteps(v.fadeTime);
  }
}

void startFade(Engine& engine, std::int16_t direction, Button& pressed) {
  Variablen& v = engine.v;
  if (v.fadeRunning) return;
  v.fadeDirection = direction;
  v.fadeStep = movesWholePicture(v.fadeTypeNow) ? stepOfSlider(engine) : 0;
  setUpSteps(engine);
  v.fadeRunning = true;
  pressed.setBackColor(v.colorFadeActive);
  if (v.fadeSteps == 0) throw Failure(kDivisionByZero);
  engine.master.timerM.setInterval(
      std::max(floorToInt32(v.fadeTime * 1000 / v.fadeSteps), kShortestStep));
  engine.master.timerM2.setInterval(kFadeRefresh);
  engine.master.timerM2.enable();
  engine.master.timerM.enable();
}

void endFade(Engine& engine) {
  Variablen& v = engine.v;
  engine.master.timerM.disable();
  engine.master.timerM2.disable();
  v.fadeRunning = false;
  engine.master.faderM.setValue(v.fadeDirection == kTowardsA ? -100 : 100);
  engine.master.AutoFadeA.setBackColor(v.colorFadeIdle);
  engine.master.AutoFadeB.setBackColor(v.colorFadeIdle);
  masterAdjust(engine);
}

}  // namespace

void resetFadeMap(Engine& engine) {
  engine.v.fadeMap.fill(engine.v.masterValue > 0.5 ? 1.0F : 0.0F);
}

void masterAdjust(Engine& engine) {
  engine.v.masterValue = (engine.master.faderM.value() + 100) / 200.0;
  if (!engine.v.fadeRunning) resetFadeMap(engine);
  if (mixIsFree(engine, kSlowFadeFrame)) mixAndDraw(engine);
}

void fadeA_Click(Engine& engine) {
  engine.master.faderM.setValue(-100);
  masterAdjust(engine);
}

void fadeB_Click(Engine& engine) {
  engine.master.faderM.setValue(100);
  masterAdjust(engine);
}

void AutoFadeA_Click(Engine& engine) { startFade(engine, kTowardsA, engine.master.AutoFadeA); }

void AutoFadeB_Click(Engine& engine) { startFade(engine, kTowardsB, engine.master.AutoFadeB); }

void timerM_Timer(Engine& engine) {
  Variablen& v = engine.v;
  if (v.fadeSteps == 0) throw Failure(kDivisionByZero);
  const double done = static_cast<double>(v.fadeStep) / v.fadeSteps;
  v.masterValue = v.fadeDirection == kTowardsB ? done : 1 - done;
  if (v.fadeStep >= v.fadeSteps) return endFade(engine);
  fadeStepOfType(engine);
  ++v.fadeStep;
  // For the way back the slider shows the mirror image.
  const std::int32_t position = floorToInt32(v.fadeStep * 200.0 / v.fadeSteps - 100);
  engine.master.faderM.setValue(position * v.fadeDirection);
}

void timerM2_Timer(Engine& engine) { mixAndDraw(engine); }

void fps_Click(Engine& engine) {
  const double rate = toReal(engine.master.fps.text(), {});
  engine.master.timerM2.setInterval(floorToInt32(1000 / rate));
}

}  // namespace korvane
