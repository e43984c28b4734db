#pragma once

#include "persistence/MatrixConf.h"
#include "platform/Controls.h"
#include "platform/Form.h"
#include "platform/TextFile.h"
#include "state/Engine.h"

namespace korvane {

/// The window that gives all lamps their channels in one step, three in a row for each lamp up from
/// a base address, and that writes the desk's device definition.
class quickConf : public Form {
 public:
  quickConf(Engine& engine, MatrixConf& conf);

  Label Label1, Label2, Label3;
  ListBox BaseAddress;
  Label Label4;
  ListBox Universe;
  Button CreateDDF, OKButton, CancelButton;

 private:
  void OKButton_Click();
  void CancelButton_Click();
  void CreateDDF_Click();

  Engine& engine_;
  MatrixConf& conf_;
};

/// Writes the device definition ("DDF"): one `function` for each red, green and blue of a matrix of
/// cols x rows lamps, row by row, with channels counted from 0 in 16 bits. The desk loads it so
/// that nothing else gets these channels.
void writeDeviceDefinition(TextWriter& file, int cols, int rows);

}  // namespace korvane
