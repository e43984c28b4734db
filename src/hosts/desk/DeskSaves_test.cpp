// What the desk counts as saved.

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "hosts/desk/DeskSession.h"
#include "platform/HeadlessPlatform.h"

namespace korvane {
namespace {

class DeskSaves : public testing::Test {
 protected:
  DeskSaves() { session.openTool(); }
  std::string at(const char* name) const { return folder.filePath(name).toStdString(); }

  QTemporaryDir folder;
  HeadlessPlatform platform;
  NetworkOutput output{"korvane-tests"};
  DeskSession session{platform, output, at("mine")};
};

TEST_F(DeskSaves, AFailedSaveIsToldAndNotCountedAsSaved) {
  EXPECT_FALSE(session.changed());
  session.gate.run([this] { session.plugin.engine.master.fadeName.setText("mine"); });
  platform.answers = {at("none/mine.Korvane")};
  EXPECT_FALSE(session.save());
  EXPECT_TRUE(session.changed());
  ASSERT_EQ(platform.failedSaves.size(), 1U);
  EXPECT_EQ(platform.failedSaves[0].path, at("none/mine.Korvane"));
  platform.answers = {at("mine.Korvane")};
  EXPECT_TRUE(session.save());
  EXPECT_FALSE(session.changed());
}

TEST_F(DeskSaves, AShowThatCanNotBeWrittenIsNotCountedAsSaved) {
  const auto breakShow = [this] {
    Deck& deck = session.plugin.engine.v.A;
    deck.effect().type = kPaint;  // without a picture
    deck.efxEdited.at(0) = true;
  };
  platform.answers = {at("mine.Korvane"), at("mine.Korvane"), at("mine.Korvane")};
  session.gate.run([this] { session.plugin.matrixForm.save.click(); });
  breakShow();
  for (int time = 0; time < 2; ++time) {
    EXPECT_FALSE(session.save());
    EXPECT_TRUE(session.changed());
  }
  EXPECT_EQ(platform.failedSaves.back().whole, at("mine.Korvane.bak"));
}

}  // namespace
}  // namespace korvane
