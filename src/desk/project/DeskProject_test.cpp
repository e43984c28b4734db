#include "desk/project/DeskProject.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "desk/project/Parts.h"
#include "platform/Failure.h"

namespace korvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A program with a few parts, and its project.
struct TestProject {
  TestProject() {
    project.add({"levels", [this] { return toJson(levels); },
                 [this](const Member& member) { levels = levelsOf(member); }});
    project.add({"outputs", [this] { return toJson(outputs); },
                 [this](const Member& member) { outputs = outputsOf(member); }});
    project.add({"wiring", [this] { return toJson(wiring); },
                 [this](const Member& member) { wiring = wiringOf(member); }});
  }
  DeskProject project;
  WallLevels levels;
  std::vector<OutputEntry> outputs;
  WiringPlan wiring;
};

TEST(DeskProject, ComesBackAsItWasWritten) {
  TestProject one;
  one.levels.master = 42;
  one.outputs = {{parseOutput("sacn:1-15,rate=30,name=Wall"), true},
                 {parseOutput("ddp@192.168.1.50"), false}};
  one.wiring.cols = 17;
  one.wiring.path = {WirePath::kBottomRight, true, true};
  one.wiring.panels = PanelPlan{.cols = 16, .turn = PanelPlan::Turn::AlternateHalf};
  TestProject other;
  EXPECT_THAT(other.project.read(one.project.text()), IsEmpty());
  EXPECT_EQ(other.levels, one.levels);
  EXPECT_EQ(other.outputs, one.outputs);
  EXPECT_EQ(other.wiring, one.wiring);
  EXPECT_EQ(other.project.text(), one.project.text());
}

TEST(DeskProject, AWrongMemberIsNamedWithItsPathAndItsNeighboursAreTaken) {
  TestProject one;
  EXPECT_THAT(
      one.project.read(R"({"version": 1, "levels": {"master": "full"},
        "outputs": [{"target": "sacn:1"}, {"target": "dmx:1"}, 7, {"target": "sacn:2", "on": 1}],
        "wiring": {"columns": 51, "rows": 9, "path": {"start": "middle", "snake": true}}})"),
      ElementsAre(R"(/levels/master: expected a whole number from 0 to 100, found "full")",
                  HasSubstr("/outputs/1/target: output 'dmx:1': unknown protocol"),
                  "/outputs/2: expected an object, found 7",
                  "/outputs/2/target: expected an output, as in sacn:1-15",
                  "/outputs/3/on: expected true or false, found 1",
                  "/wiring/columns: expected a whole number from 1 to 50, found 51",
                  R"(/wiring/path/start: expected "top left", "top right", "bottom left" or )"
                  R"("bottom right", found "middle")"));
  EXPECT_EQ(one.levels.master, 100);
  EXPECT_EQ(one.outputs.size(), 2U);
  EXPECT_EQ(one.wiring.cols, 12);
  EXPECT_EQ(one.wiring.rows, 9);
  EXPECT_TRUE(one.wiring.path.snake);
}

TEST(DeskProject, APlanThatCannotBeLaidIsNamedWhole) {
  TestProject one;
  const auto faults = one.project.read(
      R"({"wiring": {"panels": {"columns": 50, "rows": 50, "across": 50, "down": 50}}})");
  ASSERT_EQ(faults.size(), 1U);
  EXPECT_THAT(faults[0], HasSubstr("/wiring: "));
  EXPECT_EQ(one.wiring, WiringPlan{});
}

TEST(DeskProject, MembersThatItDoesNotKnowAreKept) {
  TestProject one;
  one.project.read(R"({"version": 1, "tempo": {"bpm": 120.5},
      "levels": {"master": 10, "curve": "soft"},
      "outputs": [{"target": "sacn:1", "colour": "red"}, {"target": "sacn:2", "colour": "blue"}]})");
  one.levels.master = 20;
  std::swap(one.outputs[0], one.outputs[1]);
  const Json now = Json::parse(one.project.text());
  EXPECT_EQ(now["tempo"]["bpm"], 120.5);
  EXPECT_EQ(now["levels"]["curve"], "soft");
  EXPECT_EQ(now["levels"]["master"], 20);
  EXPECT_EQ(now["outputs"][0]["colour"], "blue");
  EXPECT_EQ(now["outputs"][1]["colour"], "red");
}

TEST(DeskProject, WhatHasNoValueAnyMoreIsGoneFromTheFile) {
  TestProject one;
  one.project.read(R"({"wiring": {"panels": {"across": 3}}})");
  ASSERT_TRUE(one.wiring.panels);
  one.wiring.panels.reset();
  EXPECT_FALSE(Json::parse(one.project.text())["wiring"].contains("panels"));
}

TEST(DeskProject, ABrokenFileIsTold) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "It is no JSON: parse error at line 1"},
      {"{\"levels\": {\"master\": 5},}", "It is no JSON: parse error at line 1, column 26"},
      {"[1]", "/: expected an object, found a list"},
      {"{\"a\": \"\xff\"}", "It is no JSON: parse error"},
      {"{\"version\": 2, \"levels\": {\"master\": 5}}", "/version: 2 is newer than this program"},
  };
  for (const auto& [text, words] : cases) {
    TestProject one;
    const auto faults = one.project.read(text);
    ASSERT_EQ(faults.size(), 1U) << text;
    EXPECT_THAT(faults[0], HasSubstr(words));
    EXPECT_EQ(one.levels.master, 100) << text;
  }
}

TEST(DeskProject, ADeepNestIsRefusedAndNotFollowed) {
  TestProject one;
  EXPECT_THAT(one.project.read("{\"a\": " + std::string(1'000'000, '[')),
              ElementsAre("It is no JSON: it is nested too deeply"));
}

/// The same with a folder.
class DeskProjectFile : public testing::Test, protected TestProject {
 protected:
  DeskProjectFile() { std::filesystem::create_directories(folder); }
  ~DeskProjectFile() override { std::filesystem::remove_all(folder); }
  std::string bytesOf(const std::string& name) const {
    std::ifstream stream(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  void write(const std::string& bytes) const { std::ofstream(path, std::ios::binary) << bytes; }

  std::string folder = testing::TempDir() + "korvane-desk-project-" +
                       testing::UnitTest::GetInstance()->current_test_info()->name();
  std::string path = folder + "/show.korvanedesk";
};

TEST_F(DeskProjectFile, IsWrittenWithABackup) {
  levels.master = 30;
  project.save(path);
  const std::string first = bytesOf(path);
  levels.master = 40;
  project.save(path);
  EXPECT_EQ(bytesOf(path + ".bak"), first);
  levels.master = 50;
  EXPECT_THAT(project.open(path), IsEmpty());
  EXPECT_EQ(levels.master, 40);
}

TEST_F(DeskProjectFile, AFileThatIsNotThereTakesAllPartsBack) {
  levels.master = 30;
  EXPECT_THAT(project.open(path), IsEmpty());
  EXPECT_EQ(levels.master, 100);
}

TEST_F(DeskProjectFile, AFileOfANewerVersionIsNotWrittenOver) {
  const std::string newer = "{\"version\": 2}";
  write(newer);
  EXPECT_EQ(project.open(path).size(), 1U);
  EXPECT_THROW(project.save(path), Failure);
  EXPECT_EQ(bytesOf(path), newer);
}

TEST_F(DeskProjectFile, WhatAPersonTypedWronglyIsKeptAsTheBackup) {
  const std::string typed = "{\"levels\": {\"master\": 50,}}";
  write(typed);
  EXPECT_EQ(project.open(path).size(), 1U);
  project.save(path);
  EXPECT_EQ(bytesOf(path + ".bak"), typed);
}

TEST_F(DeskProjectFile, LettersOfEveryLanguageComeBack) {
  write(R"({"note": "Grün € 愛"})");
  project.open(path);
  project.save(path);
  EXPECT_EQ(Json::parse(bytesOf(path))["note"], "Grün € 愛");
}

// Random damage: never a crash, and what was read can be written and read again.
TEST(DeskProjectFuzz, DamagedTextsAreReadOrRefused) {
  TestProject whole;
  whole.outputs = {{parseOutput("artnet:0-3@192.168.1.20")}};
  whole.wiring.panels.emplace();
  const std::string good = whole.project.text();
  static constexpr std::string_view kBytes = "{}[]\",:0-9.eE\\u tfn\xff\x80";
  std::mt19937 random(7);
  const auto upTo = [&random](std::size_t most) {
    return std::uniform_int_distribution<std::size_t>(0, most)(random);
  };
  int read = 0;
  for (int i = 0; i < 3'000; ++i) {
    std::string text = good;
    for (std::size_t faults = upTo(3) + 1; faults > 0 && !text.empty(); --faults) {
      const std::size_t at = upTo(text.size() - 1);
      const std::size_t end = std::min(text.size(), at + upTo(20));
      const std::string piece = text.substr(at, end - at);
      switch (upTo(3)) {
        case 0:
          text[at] = kBytes[upTo(kBytes.size() - 1)];
          break;
        case 1:
          text.erase(at, end - at);
          break;
        case 2:
          text.insert(upTo(text.size()), piece);
          break;
        default:
          text.resize(at);
      }
    }
    TestProject damaged, again;
    const std::vector<std::string> faults = damaged.project.read(text);
    read += faults.empty() ? 1 : 0;
    ASSERT_THAT(again.project.read(damaged.project.text()), IsEmpty()) << text;
    ASSERT_EQ(again.outputs, damaged.outputs);
    ASSERT_EQ(again.wiring, damaged.wiring);
  }
  EXPECT_GT(read, 20) << "hardly anything was still a project: the test reaches too little";
}

}  // namespace
}  // namespace korvane
