#pragma once

#include "platform/Controls.h"
#include "platform/Form.h"
#include "platform/PictureBox.h"
#include "state/Engine.h"

namespace korvane {

/// The help of the window that defines the grid.
class MatrixConfigHelp : public Form {
 public:
  explicit MatrixConfigHelp(Engine& engine);

  PictureBox Logo, Picture;
  TextBox Text1;
  Button OK;
};

}  // namespace korvane
