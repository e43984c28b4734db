#pragma once

#include <array>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "generators/kit/EffectDialog.h"
#include "generators/paint/PaintTools.h"
#include "platform/PictureBox.h"

namespace korvane {

/// Dialog of the Paint effect: the picture, one cell a lamp, with the tools to draw in it. Every
/// stroke reaches the deck at once.
class MxPaintForm : public EffectDialog {
 public:
  explicit MxPaintForm(Engine& engine);

  /// Redraws `Bild` from the picture, then renders the deck.
  void drawPaint();
  /// The grid has another size: redraws `Bild`. The deck keeps its frame, which the change cleared,
  /// until something plays.
  void gridChanged() override;

  PictureBox Bild;
  ColorBox PColor;
  std::vector<std::unique_ptr<ColorBox>> myPalette;
  PictureButton PPoint, PLine, PRect, PRect2, PCircle, PCircle2, PFill;
  Button PGet, PUndo, PClear;
  PictureButton BUp, BDown, BLeft, BRight, BUpLeft, BUpRight, BDownLeft, BDownRight;
  Button Cancel;

  std::int16_t paintTool = kPoint;  ///< PaintTool
  Grid<Color> paintBackup;          ///< the picture when the dialog was opened, for Cancel

 protected:
  void fill() override;

 private:
  void makePalette();
  Layout tools();
  Layout colors();
  void bindTools();
  void bindShifts();
  void bindMouse();
  std::array<std::pair<PictureButton*, std::int16_t>, 7> toolButtons();
  /// Runs a mouse handler and ignores its run-time errors.
  void quietly(const std::function<void()>& handler);

  void chooseTool(std::int16_t tool);
  void Bild_MouseDown(int x, int y);
  void Bild_MouseMove(int x, int y);
  void Bild_MouseUp(int x, int y);
  void Bild_Click();
  void applyTool();
  void replaceUnder(const PaintLayout& at, PaintPoint point);
  void showRubberBand(int x, int y);
  void outlineCell(int x, int y);
  void shift(int right, int down);
  void PClear_Click();
  void PUndo_Click();
  void PGet_Click();
  void Cancel_Click();

  PaintLayout layoutOfCells() const;
  PaintArea area();
  void drawCells();
  bool showsPicture();
  /// Puts a kept picture back.
  void restore(const Grid<Color>& kept);

  PaintPoint paintStart_, paintEnd_;  // the mouse at the press and at the release
  korvane::Color lineColor_ = 0;      // of the rubber band
};

}  // namespace korvane
