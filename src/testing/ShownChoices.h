#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "testing/TestPlugin.h"

namespace korvane {

/// Expects that a person who chooses the entry that a list of the main window shows already is
/// heard: a type renders again, `fps` sets the rate again, `fadeType` breaks a fade off.
/// `chooseShown` is how a person of the view does it.
inline void expectShownChoicesToCount(Engine& engine,
                                      const std::function<void(ListBox&)>& chooseShown) {
  Variablen& v = engine.v;
  Master& master = engine.master;
  v.A.frame.fill({0, 255, 0});
  v.B.frame.fill({0, 255, 0});
  chooseShown(v.A.type);
  chooseShown(v.B.type);
  EXPECT_EQ(rgb(v.A.frame.at(0, 0)), rgb(255, 0, 0));
  EXPECT_EQ(rgb(v.B.frame.at(0, 0)), rgb(0, 0, 255));
  master.timerM2.setInterval(7);
  chooseShown(master.fps);
  EXPECT_EQ(master.timerM2.interval(), 50);
  master.AutoFadeB.click();
  EXPECT_TRUE(v.fadeRunning);
  chooseShown(master.fadeType);
  EXPECT_FALSE(v.fadeRunning);
}

}  // namespace korvane
