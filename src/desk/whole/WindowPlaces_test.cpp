#include "desk/whole/TestDesk.h"

namespace korvane {
namespace {

class WindowPlaces : public TestDesk {
 protected:
  WindowPlaces() { click(desk.form.tool); }

  void saveAs(const std::string& name) {
    machine.answers = {folder + name};
    click(desk.form.saveAs);
  }
};

TEST_F(WindowPlaces, ComeBackWithTheProject) {
  const WindowPlace main{40, 30, 1100, 640, false};
  const WindowPlace outputs{700, 90, 500, 400, true};
  desk.form.notePlace(main);
  click(desk.form.output);
  desk.setup.notePlace(outputs);
  saveAs("tour.Korvane");
  event([this] { desk.engine().desktop.close(desk.setup); });
  click(desk.form.channels);
  desk.form.notePlace({0, 0, 800, 600, false});
  desk.setup.notePlace({0, 0, 300, 200, false});
  open(folder + "tour.korvanedesk");
  EXPECT_EQ(desk.form.place(), main);
  EXPECT_EQ(desk.form.takeWantedPlace(), main);
  EXPECT_EQ(desk.setup.place(), outputs);
  EXPECT_TRUE(desk.setup.visible());
  EXPECT_FALSE(desk.monitor.visible());
  EXPECT_EQ(desk.engine().desktop.active(), &tool);
}

TEST_F(WindowPlaces, AMovedWindowIsNoChangeOfTheProject) {
  saveAs("tour.Korvane");
  desk.form.notePlace({40, 30, 1100, 640, false});
  click(desk.form.output);
  EXPECT_FALSE(desk.files.changed());
}

TEST_F(WindowPlaces, AWrongPlaceIsToldAndTheOthersAreTaken) {
  saveAs("tour.Korvane");
  write("tour.korvanedesk", R"({"version": 1, "windows": {
    "Desk": {"open": true, "x": 1, "y": 2, "width": 0, "height": 500, "maximized": false},
    "DeskOutput": {"open": "yes", "x": 5, "y": 6, "width": 300, "height": 200},
    "Another": {"open": true}}})");
  open(folder + "tour.korvanedesk");
  ASSERT_EQ(machine.boxes.size(), 1U);
  EXPECT_NE(machine.boxes[0].find("/windows/Desk/width"), std::string::npos) << machine.boxes[0];
  EXPECT_NE(machine.boxes[0].find("/windows/DeskOutput/open"), std::string::npos);
  EXPECT_EQ(desk.form.place(), std::nullopt);
  EXPECT_EQ(desk.setup.place(), (WindowPlace{5, 6, 300, 200, false}));
  click(desk.form.save);
  EXPECT_NE(bytesOf(folder + "tour.korvanedesk").find("\"Another\""), std::string::npos);
}

TEST_F(WindowPlaces, SettingsOfTheRemoteControlStandInTheFileAndAreKept) {
  saveAs("tour.Korvane");
  EXPECT_NE(bytesOf(folder + "tour.korvanedesk").find("\"remote\""), std::string::npos);
  write("tour.korvanedesk", R"({"version": 1, "remote": {
    "osc": {"on": true, "port": 7001}, "page": {"on": true, "port": 0}, "midi": {"device": "nano"}}})");
  open(folder + "tour.korvanedesk");
  ASSERT_EQ(machine.boxes.size(), 1U);
  EXPECT_NE(machine.boxes[0].find("/remote/page/port"), std::string::npos) << machine.boxes[0];
  saveAs("copy.Korvane");
  RemoteSettings kept{.osc = {true, 7001}, .page = {true, 8080}, .midi = {false, "nano"}};
  std::vector<std::string> faults;
  const Json saved = Json::parse(bytesOf(folder + "copy.korvanedesk"));
  EXPECT_EQ(remoteOf(Member(&saved.at("remote"), "/remote", faults)), kept);
  EXPECT_TRUE(faults.empty());
}

}  // namespace
}  // namespace korvane
