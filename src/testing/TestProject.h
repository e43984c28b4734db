#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Text.h"
#include "testing/TestPlugin.h"

namespace korvane {

/// The parts of a project file that a test cares about; the others are those of a small show.
struct ProjectText {
  using Lines = std::vector<std::string>;

  std::string version = "V1.0";
  std::string master = "0.5";
  std::string selA = "0", selB = "0", selX = "0";
  std::vector<Lines> a = {{"False"}};  ///< blocks of the rows, without their first lines
  std::vector<Lines> b = {{"False"}};
  std::vector<Lines> x = {{"0", "fade", "3", "255"}};
};

/// The bytes of a project file.
inline std::string project(const ProjectText& text) {
  std::string bytes;
  const auto put = [&](const std::string& line) { bytes += line + "\r\n"; };
  for (const std::string& line : {std::string("in.Korvane"), text.version, text.master,
                                  std::to_string(text.a.size()), std::to_string(text.b.size()),
                                  std::to_string(text.x.size()), text.selA, text.selB, text.selX}) {
    put(line);
  }
  const auto blocks = [&](const char* letter, const std::vector<ProjectText::Lines>& rows) {
    for (std::size_t row = 0; row < rows.size(); ++row) {
      put(letter + std::to_string(row));
      for (const std::string& line : rows[row]) put(line);
    }
  };
  blocks("A", text.a);
  blocks("B", text.b);
  blocks("X", text.x);
  return bytes;
}

/// The lines after the first one that is equal to `first`, up to one that is equal to `behind`.
inline std::vector<std::string> between(const std::vector<std::string>& lines,
                                        const std::string& first, const std::string& behind) {
  const auto from = std::find(lines.begin(), lines.end(), first);
  return {from + 1, std::find(from, lines.end(), behind)};
}

/// A plug-in with an open window on a grid of 2 x 1, and projects to save and load.
class TestProject : public TestPlugin {
 protected:
  void SetUp() override {
    ASSERT_TRUE(open());
    resize(2, 1);
    takeBoxes();
  }

  /// Presses the button; the bytes of the file, empty if there is none.
  std::string save() {
    platform.answers = {path};
    click(plugin.matrixForm.save);
    return readFile(path);
  }
  std::vector<std::string> saveLines() {
    std::string bytes = save();
    std::erase(bytes, '\r');
    std::vector<std::string> lines = split(bytes, '\n');
    lines.pop_back();
    return lines;
  }
  /// Loads a file of these bytes; the number of the failure, 0 for none.
  int load(const std::string& bytes) {
    takeBoxes();
    const std::string file = folder + "/in.Korvane";
    std::filesystem::remove(file);
    writeFile(file, bytes);
    platform.answers = {file};
    click(plugin.matrixForm.load);
    lastFailure = platform.failures.empty() ? "" : platform.failures.back().what();
    return takeFailure();
  }
  /// Gives a deck's first slot a fresh record with content to save.
  void setEffect(Deck& deck, std::int16_t type, const std::string& name,
                 const std::function<void(Effect&)>& fill) {
    Effect effect;
    effect.type = type;
    effect.name = name;
    fill(effect);
    deck.efx.at(0) = effect;
    deck.efxEdited.at(0) = true;
  }
  /// Marks the first row of each list, without starting its effect.
  void pickRows() {
    for (ListView* list : {&v.A.efxList, &v.B.efxList, &master.efxXList}) list->select(0);
  }
  /// The same as a person does it.
  void pickAll() {
    for (ListView* list : {&v.A.efxList, &v.B.efxList, &master.efxXList}) pick(*list, 0);
  }

  std::string path = folder + "/p.Korvane";
  std::string lastFailure;
};

}  // namespace korvane
