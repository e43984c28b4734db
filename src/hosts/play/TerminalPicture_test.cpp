#include "hosts/play/TerminalPicture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// How many characters of picture a line holds.
std::size_t width(const std::string& line) {
  std::size_t count = 0;
  for (auto at = line.find("▀"); at != std::string::npos; at = line.find("▀", at + 1)) ++count;
  return count;
}

Frame frameOf(int cols, int rows) {
  Frame frame;
  frame.redim(cols, rows);
  return frame;
}

TEST(TerminalPicture, ShowsTwoLampsInEachCharacter) {
  Frame frame = frameOf(2, 2);
  frame.at(0, 0) = {1, 2, 3};
  frame.at(0, 1) = {4, 5, 6};
  frame.at(1, 0) = {7, 8, 9};
  frame.at(1, 1) = {255, 0, 10};
  EXPECT_THAT(terminalLines(frame, {3, 1}),
              ElementsAre("\x1b[38;2;1;2;3m\x1b[48;2;4;5;6m▀\x1b[38;2;7;8;9m\x1b[48;2;255;0;10m▀"
                          "\x1b[0m"));
}

TEST(TerminalPicture, LeavesTheBackgroundBelowAnOddLastRow) {
  EXPECT_THAT(
      terminalLines(frameOf(1, 3), {1, 2}),
      ElementsAre("\x1b[38;2;0;0;0m\x1b[48;2;0;0;0m▀\x1b[0m", "\x1b[38;2;0;0;0m\x1b[49m▀\x1b[0m"));
}

TEST(TerminalPicture, SaysAColorOnlyWhereItChanges) {
  EXPECT_THAT(terminalLines(frameOf(3, 2), {3, 1}),
              ElementsAre("\x1b[38;2;0;0;0m\x1b[48;2;0;0;0m▀▀▀\x1b[0m"));
}

TEST(TerminalPicture, IsAsLargeAsItsRoomUpToFourPointsALamp) {
  const struct {
    int cols, rows;
    TerminalSize room;
    std::size_t width, lines;
  } cases[] = {
      {12, 12, {80, 24}, 48, 24},  // four points a lamp
      {12, 12, {80, 23}, 36, 18}, {12, 12, {300, 100}, 48, 24},
      {12, 12, {13, 24}, 12, 6},  {50, 50, {80, 24}, 48, 24},  // scaled down to fit
      {50, 50, {40, 24}, 40, 20}, {50, 2, {25, 24}, 25, 1},
      {1, 50, {80, 10}, 1, 10},   {50, 50, {1, 1}, 1, 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message()
                 << c.cols << "x" << c.rows << " in " << c.room.columns << "x" << c.room.lines);
    const auto lines = terminalLines(frameOf(c.cols, c.rows), c.room);
    ASSERT_THAT(lines, SizeIs(c.lines));
    EXPECT_EQ(width(lines.front()), c.width);
  }
}

TEST(TerminalPicture, WithoutRoomOrLampsThereIsNone) {
  EXPECT_THAT(terminalLines(frameOf(0, 0), {80, 24}), IsEmpty());
  EXPECT_THAT(terminalLines(frameOf(5, 5), {0, 0}), IsEmpty());
  EXPECT_THAT(terminalLines(frameOf(5, 5), {80, -1}), IsEmpty());
}

TEST(TerminalPicture, OnlyLinesThatDifferAreWritten) {
  EXPECT_EQ(linesThatDiffer({"a", "b"}, {"a", "b"}), "");
  EXPECT_EQ(linesThatDiffer({"a", "c"}, {"a", "b"}), "\x1b[2;1Hc\x1b[K");
  EXPECT_EQ(linesThatDiffer({"a"}, {"a", "b"}), "\x1b[2;1H\x1b[K");
  EXPECT_EQ(linesThatDiffer({"a"}, {}), "\x1b[1;1Ha\x1b[K");
}

}  // namespace
}  // namespace korvane
