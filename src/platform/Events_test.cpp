#include "platform/Events.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <new>
#include <stdexcept>
#include <vector>

#include "platform/HeadlessPlatform.h"
#include "testing/FailureOf.h"

namespace korvane {
namespace {

class EventsTest : public testing::Test {
 protected:
  bool run(const std::function<void()>& event) { return runEvent(platform, event); }
  // The report of the one failure.
  std::string report() const {
    return platform.failures.size() == 1 ? platform.failures.front().what() : "none or many";
  }

  HeadlessPlatform platform;
};

TEST_F(EventsTest, AnEventThatEndsWellIsNotReported) {
  EXPECT_TRUE(run([] {}));
  EXPECT_TRUE(platform.failures.empty());
}

TEST_F(EventsTest, AFailureIsReportedOnceAndEndsTheEvent) {
  bool after = false;
  EXPECT_FALSE(run([&] {
    throw Failure(kDivisionByZero);
    after = true;
  }));
  EXPECT_FALSE(after);
  EXPECT_EQ(report(), "Division by zero");
  EXPECT_EQ(platform.failures.front().number, 11);
}

TEST_F(EventsTest, WhatTheEventDidSoFarStays) {
  int done = 0;
  run([&] {
    done = 1;
    throw Failure(kOverflow);
  });
  EXPECT_EQ(done, 1);
  EXPECT_TRUE(run([&] { done = 2; }));  // the program goes on
  EXPECT_EQ(done, 2);
}

TEST_F(EventsTest, AnIndexOutsideAContainerIsASubscriptFailure) {
  run([] { std::vector<int>().at(3) = 1; });
  EXPECT_EQ(report(), "Subscript out of range");
}

TEST_F(EventsTest, ASizeThatNoContainerTakesIsASubscriptFailure) {
  volatile int count = -3;
  run([&] { std::vector<double>(static_cast<std::size_t>(count)); });
  EXPECT_EQ(report(), "Subscript out of range");
}

TEST_F(EventsTest, MemoryThatThereIsNotIsAFailure) {
  run([] { throw std::bad_alloc(); });
  EXPECT_EQ(report(), "Out of memory");
}

TEST_F(EventsTest, AnErrorOfTheFileSystemIsAnAccessFailureWithItsText) {
  run([] { std::filesystem::create_directory("/none/deeper"); });
  EXPECT_EQ(platform.failures.at(0).number, kPathAccess);
  EXPECT_NE(report().find("/none/deeper"), std::string::npos);
}

TEST_F(EventsTest, AFaultOfTheProgramItselfIsToldAsSuch) {
  run([] { std::function<void()>()(); });
  run([] { throw std::logic_error("never"); });
  ASSERT_EQ(platform.failures.size(), 2U);
  EXPECT_EQ(platform.failures[0].number, kInternal);
  EXPECT_NE(std::string(platform.failures[0].what()).find("Internal error: "), std::string::npos);
  EXPECT_STREQ(platform.failures[1].what(), "Internal error: never");
}

TEST(Failure, HasTheStandardTextAndTheDetail) {
  EXPECT_STREQ(Failure(kSubscript).what(), "Subscript out of range");
  EXPECT_STREQ(Failure(kFileNotFound, "x.bmp").what(), "File not found: x.bmp");
  EXPECT_STREQ(Failure(441).what(), "Run-time failure 441");
}

TEST(Failure, EveryNumberHasItsText) {
  struct Case {
    int number;
    const char* text;
  };
  for (const Case& c :
       {Case{6, "Overflow"}, Case{7, "Out of memory"}, Case{9, "Subscript out of range"},
        Case{11, "Division by zero"}, Case{13, "Type mismatch"}, Case{51, "Internal error"},
        Case{53, "File not found"}, Case{62, "Input past end of file"},
        Case{75, "Path/File access error"}, Case{91, "Object variable not set"},
        Case{380, "Invalid property value"}, Case{481, "Invalid picture"},
        Case{32755, "Cancel was selected"}}) {
    EXPECT_STREQ(Failure(c.number).what(), c.text);
  }
}

TEST(HeadlessPlatform, AnswersFileDialogsFromItsQueue) {
  HeadlessPlatform platform;
  platform.answers = {"one", std::nullopt};
  const FileQuestion question{.purpose = FileQuestion::Purpose::Save, .title = "Save ..."};
  EXPECT_EQ(chosenFile(platform, question), "one");
  EXPECT_EQ(failureOf([&] { chosenFile(platform, question); }), kCancelled);
  EXPECT_EQ(failureOf([&] { chosenFile(platform, question); }), kCancelled);  // an empty queue
  EXPECT_EQ(platform.questions.size(), 3U);
  EXPECT_EQ(platform.questions.front().title, "Save ...");
}

TEST(HeadlessPlatform, KeepsWhatAPersonWouldSee) {
  HeadlessPlatform platform;
  platform.messageBox("Blackout");
  platform.openPage("/wiki");
  EXPECT_EQ(platform.boxes, std::vector<std::string>{"Blackout"});
  EXPECT_EQ(platform.pages, std::vector<std::string>{"/wiki"});
}

TEST(HeadlessPlatform, HasNoPictureLoader) {
  HeadlessPlatform platform;
  const std::string path = testing::TempDir() + "korvane-no-picture.bmp";
  EXPECT_EQ(failureOf([&] { platform.loadPicture(path); }), kFileNotFound);
  std::ofstream(path) << "no picture";
  EXPECT_EQ(failureOf([&] { platform.loadPicture(path); }), kInvalidPicture);
  std::filesystem::remove(path);
}

}  // namespace
}  // namespace korvane
