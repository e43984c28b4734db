#include "hosts/console/InputLines.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <thread>

namespace korvane {
namespace {

using Found = InputLines::Found;

class Lines : public testing::Test {
 protected:
  ~Lines() override {
    close(ends[0]);
    finish();
  }

  void send(const std::string& bytes) {
    EXPECT_EQ(write(ends[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }
  void finish() {
    if (ends[1] >= 0) close(ends[1]);
    ends[1] = -1;
  }
  /// What the reader finds next, and the line if it is one.
  std::pair<Found, std::string> next() {
    std::string line;
    const Found found = reader.next(line, 0);
    return {found, found == Found::Line ? line : ""};
  }

  static std::array<int, 2> makePipe() {
    std::array<int, 2> both{};
    EXPECT_EQ(pipe(both.data()), 0);
    return both;
  }

  std::array<int, 2> ends = makePipe();
  InputLines reader{ends[0]};
};

TEST_F(Lines, ComeOneByOne) {
  send("one\n\ntwo\n");
  EXPECT_EQ(next(), std::pair(Found::Line, std::string("one")));
  EXPECT_EQ(next(), std::pair(Found::Line, std::string()));
  EXPECT_EQ(next(), std::pair(Found::Line, std::string("two")));
  EXPECT_EQ(next().first, Found::Nothing);
}

TEST_F(Lines, MayArriveInPieces) {
  send("o");
  EXPECT_EQ(next().first, Found::Nothing);
  send("n");
  EXPECT_EQ(next().first, Found::Nothing);
  send("e\ntw");
  EXPECT_EQ(next(), std::pair(Found::Line, std::string("one")));
  EXPECT_EQ(next().first, Found::Nothing);
  send("o\n");
  EXPECT_EQ(next(), std::pair(Found::Line, std::string("two")));
}

TEST_F(Lines, TheLastOneMayLackItsEnd) {
  send("one\ntwo");
  finish();
  EXPECT_EQ(next(), std::pair(Found::Line, std::string("one")));
  EXPECT_EQ(next().first, Found::Nothing);
  EXPECT_EQ(next(), std::pair(Found::Line, std::string("two")));
  EXPECT_EQ(next().first, Found::End);
  EXPECT_EQ(next().first, Found::End);
}

TEST_F(Lines, AnEmptyInputEndsAtOnce) {
  finish();
  EXPECT_EQ(next().first, Found::Nothing);
  EXPECT_EQ(next().first, Found::End);
}

TEST_F(Lines, MayBeVeryLong) {
  const std::string megabyte(1 << 20, 'x');
  std::thread writer([&] { send(megabyte + "\nshort\n"); });
  std::string line;
  while (reader.next(line, -1) == Found::Nothing) continue;
  EXPECT_EQ(line, megabyte);
  while (reader.next(line, -1) == Found::Nothing) continue;
  EXPECT_EQ(line, "short");
  writer.join();
}

TEST_F(Lines, WhatCanNotBeReadIsAnError) {
  const int folder = open(".", O_RDONLY | O_CLOEXEC);
  InputLines ofFolder(folder);
  std::string line;
  EXPECT_EQ(ofFolder.next(line, 0), Found::Error);
  close(folder);
}

}  // namespace
}  // namespace korvane
