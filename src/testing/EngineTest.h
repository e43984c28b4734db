#pragma once

#include <gtest/gtest.h>

#include "platform/Events.h"
#include "platform/HeadlessPlatform.h"
#include "state/Engine.h"
#include "testing/FailureOf.h"
#include "testing/FakeHost.h"

namespace korvane {

/// The shared state alone, with a machine without a person and a desk around it: for the floors
/// below the windows.
class EngineTest : public testing::Test {
 protected:
  EngineTest() { v.host = &host; }

  /// Gives the grid a size. The channels run from 1 on, column by column; all frames are black.
  void redim(int cols, int rows) {
    v.matrixCols = static_cast<std::int16_t>(cols);
    v.matrixRows = static_cast<std::int16_t>(rows);
    v.matrix.redim();
    v.matrix.countChannelsUp(1, Matrix::Order::ColumnByColumn);
    for (Frame* frame : {&v.frameA, &v.frameB, &v.frameWorkA, &v.frameWorkB, &v.frameM})
      frame->redim(cols, rows);
    v.fadeMap.redim(cols, rows);
    v.frameSent.redim(cols, rows);
  }

  HeadlessPlatform platform;
  FakeHost host;
  Engine engine{platform};
  Variablen& v = engine.v;
};

}  // namespace korvane
