// A random operator presses what a person can press in every window, changes
// grids, saves and loads. Whatever was said to be saved can be loaded and holds
// the same, and nothing crashes. Each session starts from a seed and repeats
// exactly.
//   KORVANE_ACTIONS=1000000 KORVANE_SEED=1 korvane-commands-tests
//   --gtest_filter='RandomPlay.*'

#include "commands/TestOperator.h"

namespace korvane {
namespace {

TEST(RandomPlay, NoShowIsLost) { playRandomly<OperatorConsole>(6000); }

}  // namespace
}  // namespace korvane
