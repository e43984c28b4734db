#pragma once

#include <string>

#include "desk/whole/TestDesk.h"

namespace korvane {

/// A desk on which shows are opened, changed and saved.
class Shows : public TestDesk {
 protected:
  std::string name() { return desk.session.name(); }
  void renameFade(const char* text) {
    event([this, text] { plugin.engine.master.fadeName.setText(text); });
  }
  void openExample(std::size_t index) { click(*desk.form.examples.at(index)); }
};

}  // namespace korvane
