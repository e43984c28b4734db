#include "hosts/play/TerminalPicture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

TEST(TerminalPicture, ShowsTwoLampsInEachCharacter) {
  Frame frame;
  frame.redim(2, 2);
  frame.at(0, 0) = {1, 2, 3};
  frame.at(0, 1) = {4, 5, 6};
  frame.at(1, 0) = {7, 8, 9};
  frame.at(1, 1) = {255, 0, 10};
  EXPECT_EQ(terminalPicture(frame),
            "\x1b[38;2;1;2;3m\x1b[48;2;4;5;6m▀▀\x1b[38;2;7;8;9m\x1b[48;2;255;0;10m▀▀\x1b[0m\n");
  EXPECT_EQ(backToTop(frame), "\x1b[1A");
}

TEST(TerminalPicture, LeavesTheBackgroundBelowAnOddLastRow) {
  Frame frame;
  frame.redim(1, 3);
  EXPECT_EQ(terminalPicture(frame),
            "\x1b[38;2;0;0;0m\x1b[48;2;0;0;0m▀▀\x1b[0m\n\x1b[38;2;0;0;0m\x1b[49m▀▀\x1b[0m\n");
  EXPECT_EQ(backToTop(frame), "\x1b[2A");
}

}  // namespace
}  // namespace korvane
