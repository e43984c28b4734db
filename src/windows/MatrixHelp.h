#pragma once

#include "platform/Controls.h"
#include "platform/Form.h"
#include "platform/PictureBox.h"
#include "state/Engine.h"

namespace korvane {

/// Address of the online help.
inline constexpr const char* kHelpPage = "https://korvane.example/wiki/Korvane";

/// The help of the main window: points to the online help.
class MatrixHelp : public Form {
 public:
  explicit MatrixHelp(Engine& engine);

  PictureBox Logo;
  Label Title, Page;
  Button OK;
};

}  // namespace korvane
