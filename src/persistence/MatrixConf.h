#pragma once

#include <functional>
#include <string>

#include "persistence/MatrixConfDetail.h"
#include "persistence/MatrixDefinition.h"
#include "platform/Controls.h"
#include "platform/Form.h"
#include "platform/PictureBox.h"
#include "state/Engine.h"

namespace korvane {

/// The window that defines the lamp grid: its size, and the channels of every cell.
class MatrixConf : public Form {
 public:
  explicit MatrixConf(Engine& engine);

  /// Asks for a definition file and loads or saves it. Any error, a cancelled dialog included, ends
  /// the operation without a word; what was done so far stays done.
  void load_Click();
  void save_Click();
  /// Draws the grid: white for configured cells, grey for the others. kDivisionByZero for an empty
  /// one.
  void redraw_config();

  Label Label3, Label4;
  TextBox MName;
  Label Label2;
  ListBox ncol;
  Label Label1;
  ListBox nrow;
  PictureBox mxbild;
  Button fastConfig, save, load, help, OK;
  MatrixConfDetail detail;

  /// For the desk: the definition was saved to a file or loaded from one.
  std::function<void()> onKept;

 private:
  void bind();
  void Form_Load();
  void takeDefinition();
  void apply(const MatrixDefinition& definition);
  void showSize();
  /// The same for a size that was just read from a file.
  void takeSize();
  void showGrid();
  /// Gives a side of the matrix the size chosen in its list, which clears the map.
  void resize(std::int16_t& side, const ListBox& list);
  void loadFile();
  void saveFile();
  void drawCell(int col, int row);
  void mxbild_MouseUp(int x, int y);
  void mxbild_DblClick();
  void OK_Click();
  /// Moves the suggestion on to the next free channel and returns its code.
  void suggest(ListBox& channel, ListBox& universe);
  void prefill();

  Engine& engine_;
  std::int32_t nextChannel_ = 1;
  std::int32_t nextUniverse_ = 1;
  std::int16_t cellSize_ = 0;  // side of a cell in the picture, in pixels
};

}  // namespace korvane
