#pragma once

#include "playback/MasterFade.h"
#include "testing/TestPlugin.h"

namespace korvane {

/// A whole plug-in whose fades are played, and pictures of what they mix.
class MasterFade : public TestPlugin {
 protected:
  void SetUp() override { ASSERT_TRUE(open()); }

  /// Number of output passes since the last time.
  std::int64_t passes() {
    const std::vector<std::string> calls = takeCalls();
    return std::count(calls.begin(), calls.end(), "UserInteraction");
  }

  void selectFade(std::int16_t fadeType, double seconds) {
    v.efxX[0] = {fadeType, "fade", seconds, rgb(10, 20, 30)};
    pick(master.efxXList, 0);
  }
  void size(int cols, int rows) {
    resize(cols, rows);
    v.frameA.fill({1, 1, 1});
    v.frameB.fill({2, 2, 2});
  }
  /// The map as a picture: B where a cell shows deck B.
  std::string map() {
    std::string picture;
    for (int row = 0; row < v.matrixRows; ++row) {
      for (int col = 0; col < v.matrixCols; ++col)
        picture += v.fadeMap.at(col, row) == 1.0F ? 'B' : '.';
      picture += '\n';
    }
    return picture;
  }
  /// The mix as a picture: the red component as a digit.
  std::string mixed() {
    std::string picture;
    for (int row = 0; row < v.matrixRows; ++row) {
      for (int col = 0; col < v.matrixCols; ++col) {
        picture += static_cast<char>('0' + v.frameM.at(col, row)[0]);
      }
      picture += '\n';
    }
    return picture;
  }
};

}  // namespace korvane
