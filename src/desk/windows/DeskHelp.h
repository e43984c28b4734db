#pragma once

#include <string>

#include "platform/Controls.h"
#include "platform/Desktop.h"

namespace korvane {

/// The help of the desk, all of it on this machine: how to begin, and the keys of its commands.
class DeskHelp : public Form {
 public:
  DeskHelp(Desktop& desktop, const std::vector<MenuItem*>& items);

  TextBox text;
  Button OK;
};

}  // namespace korvane
