// The desk's project: three files that are opened and saved together.

#include <gmock/gmock.h>

#include "desk/whole/TestDesk.h"

namespace korvane {
namespace {

using testing::HasSubstr;

class Projects : public TestDesk {
 protected:
  /// Saves a new show as tour.Korvane.
  void saveTour() {
    click(desk.form.tool);
    machine.answers = {folder + "tour.Korvane"};
    click(desk.form.save);
  }
  void setMaster(int percent) {
    event([this, percent] { desk.form.grandMaster.setValue(percent); });
  }
};

TEST_F(Projects, SavingWritesThreeFilesAndAnyOfThemOpensTheProject) {
  setMaster(70);
  event([this] { plugin.matrixConf.MName.setText("my wall"); });
  saveTour();
  const Json file = Json::parse(bytesOf(folder + "tour.korvanedesk"));
  EXPECT_EQ(file["show"], "tour.Korvane");
  EXPECT_EQ(file["grid"], "tour.korvaneconf");
  for (const char* ending : {"Korvane", "korvaneconf", "korvanedesk"}) {
    SCOPED_TRACE(ending);
    setMaster(100);
    open(examples[0].path);
    EXPECT_EQ(desk.session.name(), "1-club-night");
    EXPECT_EQ(desk.form.grandMaster.value(), 100);
    open(folder + "tour." + ending);
    EXPECT_EQ(desk.session.name(), "tour");
    EXPECT_EQ(desk.form.grandMaster.value(), 70);
    EXPECT_EQ(desk.form.caption(), "tour - Korvane");
  }
  EXPECT_THAT(machine.boxes, testing::IsEmpty());
}

TEST_F(Projects, AProjectThatWasRenamedOpensTheShowThatItNames) {
  saveTour();
  std::filesystem::rename(folder + "tour.korvanedesk", folder + "summer.korvanedesk");
  open(folder + "summer.korvanedesk");
  EXPECT_EQ(desk.session.name(), "tour");
}

TEST_F(Projects, AProjectWithoutItsShowIsToldAndChangesNothing) {
  saveTour();
  write("lone.korvanedesk", "{}");
  open(folder + "lone.korvanedesk");
  ASSERT_EQ(machine.boxes.size(), 1U);
  EXPECT_THAT(machine.boxes[0], HasSubstr("lone can't be opened."));
  EXPECT_EQ(desk.session.name(), "tour");
}

TEST_F(Projects, AWrongMemberIsToldAndTheRestIsTaken) {
  saveTour();
  write("tour.korvanedesk", R"({"levels": {"master": 40}, "wiring": {"rows": "many"}})");
  open(folder + "tour.Korvane");
  ASSERT_EQ(machine.boxes.size(), 1U);
  EXPECT_EQ(machine.boxes[0],
            "tour.korvanedesk was read, but for this:\n"
            "/wiring/rows: expected a whole number from 1 to 50, found \"many\"");
  EXPECT_EQ(desk.form.grandMaster.value(), 40);
}

TEST_F(Projects, WhatOtherProgramsKeepThereStays) {
  saveTour();
  write("tour.korvanedesk", R"({"version": 1, "tempo": {"bpm": 128}})");
  open(folder + "tour.Korvane");
  click(desk.form.save);
  EXPECT_EQ(Json::parse(bytesOf(folder + "tour.korvanedesk"))["tempo"]["bpm"], 128);
}

TEST_F(Projects, AGrandMasterAloneIsNoChangeToAskAbout) {
  saveTour();
  setMaster(30);
  EXPECT_EQ(desk.form.caption(), "tour - Korvane");
}

TEST_F(Projects, OutputsBelongToTheProject) {
  saveTour();
  const auto targets = [this] {
    std::string all;
    for (const OutputEntry& entry : desk.setup.entries()) all += entryText(entry) + ";";
    return all;
  };
  event([this] { desk.setup.take({parseOutput("sacn:1@127.0.0.1:5999"), false}); });
  EXPECT_EQ(desk.form.caption(), "tour* - Korvane") << "they count";
  click(desk.form.save);
  event([this] { desk.setup.takeAll({{parseOutput("artnet:7@127.0.0.1:5998"), false}}); });
  event([this] { desk.files.keepAsIs(); });
  open(folder + "tour.korvanedesk");
  EXPECT_EQ(targets(), "off sacn:1@127.0.0.1:5999;");
  open(examples[0].path);
  EXPECT_EQ(targets(), "off sacn:1@127.0.0.1:5999;") << "a show without a project leaves them";
}

TEST_F(Projects, AProjectThatCannotBeWrittenIsTold) {
  saveTour();
  std::filesystem::remove(folder + "tour.korvanedesk");
  std::filesystem::create_directory(folder + "tour.korvanedesk");
  click(desk.form.save);
  ASSERT_EQ(machine.failedSaves.size(), 1U);
  EXPECT_EQ(machine.failedSaves[0].path, folder + "tour.korvanedesk");
}

/// A desk that keeps aside what was changed, as often as it is started.
class KeptAside : public testing::Test {
 protected:
  struct Run {
    /// With a show that it opens at its start.
    explicit Run(const std::string& folder, const std::string& show = {})
        : desk(machine, feed, {folder + "mine", {}, folder + "recent", {}, folder + "kept/"}) {
      event([this] { desk.show(); });
      if (!show.empty()) event([&] { desk.files.open(show); });
      event([this] { desk.files.offerLeft(); });
    }
    void event(const std::function<void()>& what) {
      runEvent(machine, what);
      desk.refresh();
    }
    void click(MenuItem& item) {
      event([&item] { item.click(); });
    }
    /// Opens the tool, gives its fade a name, and waits.
    void change(const char* name) {
      click(desk.form.tool);
      event([&] { desk.engine().master.fadeName.setText(name); });
      rest();
    }
    void rest() {
      TimerQueue& timers = desk.engine().timers;
      timers.advanceTo(timers.now() + 4000, [this](const auto& tick) { runEvent(machine, tick); });
      desk.settle();
    }
    PicturePlatform machine;
    LampFeed feed{"korvane-tests"};
    Desk desk;
  };

  KeptAside() {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
  }
  ~KeptAside() override { std::filesystem::remove_all(folder); }
  std::string folder = testing::TempDir() + "korvane-kept-aside-" +
                       testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
};

TEST_F(KeptAside, IsOfferedAfterACrashWithWhatWasChangedAndOpensAsItWas) {
  std::string contents;
  {
    Run crashed(folder);
    crashed.change("Slow");
    contents = crashed.desk.session.showText();
  }
  Run next(folder);
  ASSERT_TRUE(next.desk.question.visible());
  const std::string text = next.desk.question.text.look().caption;
  EXPECT_THAT(text,
              HasSubstr("mine was changed and not saved when the desk ended. It was kept at 20"));
  EXPECT_THAT(text, HasSubstr("\n- name of fade 'new fade'"));
  next.event([&] { next.desk.question.first.click(); });
  EXPECT_EQ(next.desk.session.showText(), contents);
  EXPECT_EQ(next.desk.session.path(), "");
  EXPECT_EQ(next.desk.form.caption(), "mine* - Korvane");
}

// Its pictures lie beside the show, not beside the copy that is opened.
TEST_F(KeptAside, ARestoredShowFindsItsPicturesBeforeItIsSaved) {
  const std::string examples = sourceFolder() + "/examples/";
  for (const char* file : {"4-slide-show.Korvane", "4-slide-show.korvaneconf", "slides"})
    std::filesystem::copy(examples + file, folder + file, std::filesystem::copy_options::recursive);
  {
    Run crashed(folder);
    crashed.machine.answers = {folder + "4-slide-show.Korvane"};
    crashed.click(crashed.desk.form.open);
    crashed.change("Slow");
  }
  Run next(folder);
  ASSERT_TRUE(next.desk.question.visible());
  next.event([&] { next.desk.question.first.click(); });
  EXPECT_EQ(next.desk.session.path(), folder + "4-slide-show.Korvane");
  const Variablen& v = next.desk.engine().v;
  ASSERT_EQ(v.A.efx.at(0).imageFiles.at(0), "slides/sunrise.bmp");
  EXPECT_EQ(v.showFolder, folder);
  EXPECT_EQ(rgb(v.frameA.at(0, 0)), rgb(9, 9, 9)) << "the picture as this machine reads it";
  next.rest();
  next.rest();
  EXPECT_EQ(v.A.efx.at(0).imageCount, 5) << "none was missed";
  EXPECT_THAT(next.machine.boxes, testing::IsEmpty());
}

TEST_F(KeptAside, IsOfferedThoughItsShowIsOpenAgainAlready) {
  const std::string show = folder + "tour.Korvane";
  const auto fadeName = [](Run& run) { return run.desk.engine().v.efxX.at(0).name; };
  {
    Run crashed(folder);
    crashed.change("Slow");
    crashed.machine.answers = {show};
    crashed.click(crashed.desk.form.save);
    crashed.change("Fast");
  }
  {
    Run later(folder, show);
    ASSERT_TRUE(later.desk.question.visible());
    later.event([&] { later.desk.question.third.click(); });
    later.rest();
    later.change("Glitter");
    later.click(later.desk.form.save);
    later.event([&] { later.desk.files.end(); });
  }
  Run next(folder, show);
  ASSERT_TRUE(next.desk.question.visible());
  EXPECT_EQ(fadeName(next), "Glitter");
  next.event([&] { next.desk.question.first.click(); });
  EXPECT_EQ(fadeName(next), "Fast");
  EXPECT_EQ(next.desk.session.path(), show);
  EXPECT_EQ(next.desk.form.caption(), "tour* - Korvane");
  EXPECT_THAT(next.desk.form.wrong.look().caption, testing::Not(HasSubstr("another desk")));
}

TEST_F(KeptAside, ANoIsForGood) {
  { Run(folder).change("Slow"); }
  {
    Run next(folder);
    ASSERT_TRUE(next.desk.question.visible());
    next.event([&] { next.desk.question.second.click(); });
  }
  EXPECT_FALSE(Run(folder).desk.question.visible());
}

TEST_F(KeptAside, NothingIsOfferedAfterAProperEnd) {
  {
    Run one(folder);
    one.change("Slow");
    one.click(one.desk.form.quit);
    one.event([&] { one.desk.question.second.click(); });  // discard
    EXPECT_TRUE(one.desk.closed());
  }
  {
    Run one(folder);
    EXPECT_FALSE(one.desk.question.visible());
    one.change("Slow");
    one.machine.answers = {folder + "tour.Korvane"};
    one.click(one.desk.form.save);
  }
  EXPECT_FALSE(Run(folder).desk.question.visible());
}

TEST_F(KeptAside, NeverWritesOverThePersonsFiles) {
  Run one(folder);
  one.change("Slow");
  one.machine.answers = {folder + "tour.Korvane"};
  one.click(one.desk.form.save);
  const auto written = std::filesystem::last_write_time(folder + "tour.Korvane");
  one.change("Fast");
  EXPECT_EQ(std::filesystem::last_write_time(folder + "tour.Korvane"), written);
}

TEST_F(KeptAside, TheSecondDeskOnAProjectIsTold) {
  Run one(folder), two(folder);
  one.change("Slow");
  one.machine.answers = {folder + "tour.Korvane"};
  one.click(one.desk.form.save);
  two.machine.answers = {folder + "tour.Korvane"};
  two.click(two.desk.form.open);
  EXPECT_THAT(two.desk.form.wrong.look().caption, HasSubstr("tour was open in another desk, too"));
  EXPECT_THAT(one.desk.form.wrong.look().caption, testing::Not(HasSubstr("another desk")));
}

TEST_F(KeptAside, TheLastShowOpensAtTheStartIfWanted) {
  {
    Run one(folder);
    one.change("Slow");
    one.machine.answers = {folder + "tour.Korvane"};
    one.click(one.desk.form.save);
    one.click(one.desk.form.openLast);
  }
  Run next(folder);
  EXPECT_TRUE(next.desk.form.openLast.lit());
  next.event([&] { next.desk.files.openLast(); });
  EXPECT_EQ(next.desk.session.name(), "tour");
  next.click(next.desk.form.openLast);
  EXPECT_FALSE(Run(folder).desk.form.openLast.lit());
}

}  // namespace
}  // namespace korvane
