// What the program writes fits the schema in the documentation, and both call the same members
// wrong.

#include <gmock/gmock.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "desk/project/DeskProject.h"
#include "desk/project/Parts.h"
#include "desk/project/WindowSection.h"
#include "testing/SourceFolder.h"

namespace korvane {
namespace {

constexpr int kNoValidator = 77;

class ProjectSchema : public testing::Test {
 protected:
  ProjectSchema() {
    std::filesystem::create_directories(folder);
    project.add({"outputs", [this] { return toJson(outputs); },
                 [this](const Member& member) { outputs = outputsOf(member); }});
    project.add({"levels", [this] { return toJson(levels); },
                 [this](const Member& member) { levels = levelsOf(member); }});
    project.add({"wiring", [this] { return toJson(wiring); },
                 [this](const Member& member) { wiring = wiringOf(member); }});
    project.add({"remote", [this] { return toJson(remote); },
                 [this](const Member& member) { remote = remoteOf(member); }});
    desktop.add(window);
    project.add(windowSection(desktop, {&window}));
  }
  ~ProjectSchema() override { std::filesystem::remove_all(folder); }

  void write(const std::string& name, const std::string& text) const {
    std::ofstream(folder + name) << text;
  }
  /// What the validator says of the files in the folder.
  std::string validate() {
    const std::string command =
        "cd " + folder + " && " + sourceFolder() + "/scripts/check-desk-project *.korvanedesk 2>&1";
    FILE* pipe = popen(command.c_str(), "r");
    std::string said;
    std::array<char, 512> part{};
    while (fgets(part.data(), part.size(), pipe) != nullptr) said += part.data();
    status = WEXITSTATUS(pclose(pipe));
    return said;
  }

  std::string folder = testing::TempDir() + "korvane-project-schema-" +
                       testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
  int status = -1;
  DeskProject project;
  std::vector<OutputEntry> outputs;
  WallLevels levels;
  WiringPlan wiring;
  RemoteSettings remote;
  Desktop desktop;
  Form window{"Desk", "Korvane"};
};

TEST_F(ProjectSchema, WhatIsWrittenFits) {
  write("plain.korvanedesk", project.text());
  outputs = {{parseOutput("sacn:1-15")},
             {parseOutput("ddp@10.0.0.1,rate=30"), false},
             {parseOutput("artnet:0@nodes")},
             {parseOutput("ola:7")}};
  wiring.panels = PanelPlan{};
  wiring.fill = UniverseFill::Lines;
  levels.master = 0;
  window.notePlace({-1400, 20, 1280, 700, true});
  write("full.korvanedesk", project.text());
  const std::string said = validate();
  if (status == kNoValidator) GTEST_SKIP() << said;
  EXPECT_EQ(status, 0);
  EXPECT_EQ(said, "");
}

TEST_F(ProjectSchema, TheSameMembersAreWrongForBoth) {
  const std::pair<const char*, const char*> cases[] = {
      {R"({"levels": {"master": 101}})", "/levels/master"},
      {R"({"remote": {"osc": {"port": 0}}})", "/remote/osc/port"},
      {R"({"remote": {"midi": {"device": 7}}})", "/remote/midi/device"},
      {R"({"windows": {"Desk": {"width": 0}}})", "/windows/Desk/width"},
      {R"({"levels": {"master": 1.5}})", "/levels/master"},
      {R"({"levels": []})", "/levels"},
      {R"({"outputs": {}})", "/outputs"},
      {R"({"outputs": [{"target": "dmx"}]})", "/outputs/0/target"},
      {R"({"outputs": [{"target": "sacn:1", "on": "yes"}]})", "/outputs/0/on"},
      {R"({"wiring": {"columns": 0}})", "/wiring/columns"},
      {R"({"wiring": {"universe": 17}})", "/wiring/universe"},
      {R"({"wiring": {"channel": 513}})", "/wiring/channel"},
      {R"({"wiring": {"path": {"start": "top"}}})", "/wiring/path/start"},
      {R"({"wiring": {"path": {"snake": 1}}})", "/wiring/path/snake"},
      {R"({"wiring": {"colours": "RGBW"}})", "/wiring/colours"},
      {R"({"wiring": {"fill": 1}})", "/wiring/fill"},
      {R"({"wiring": {"lampsPerUniverse": 171}})", "/wiring/lampsPerUniverse"},
      {R"({"wiring": {"skipped": -1}})", "/wiring/skipped"},
      {R"({"wiring": {"panels": {"turn": "up"}}})", "/wiring/panels/turn"},
      {R"({"wiring": {"panels": {"across": 51}}})", "/wiring/panels/across"},
  };
  std::string expected;
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    const auto& [members, path] = cases[i];
    const std::string text = R"({"version": 1, )" + std::string(members).substr(1);
    const std::vector<std::string> faults = project.read(text);
    ASSERT_FALSE(faults.empty()) << text;
    EXPECT_TRUE(faults[0].starts_with(std::string(path) + ": ")) << faults[0];
    const std::string name = std::to_string(100 + i) + ".korvanedesk";
    write(name, text);
    expected += name + " " + path + "\n";
  }
  const std::string said = validate();
  if (status == kNoValidator) GTEST_SKIP() << said;
  std::string places;
  for (std::size_t at = 0; at < said.size(); at = said.find('\n', at) + 1)
    places += said.substr(at, said.find(": ", at) - at) + "\n";
  EXPECT_EQ(places, expected) << said;
}

}  // namespace
}  // namespace korvane
