#include "generators/paint/MxPaintForm.h"

#include <stdexcept>
#include <string>

#include "generators/kit/MxColorMixer.h"
#include "generators/paint/PaintCode.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

constexpr int kBildSize = 420;
constexpr Color kAroundTheGrid = rgb(96, 96, 96);

constexpr std::array<Color, 10> kPalette = {
    rgb(0, 0, 0),   rgb(255, 255, 255), rgb(255, 0, 0), rgb(255, 128, 0), rgb(255, 255, 0),
    rgb(0, 255, 0), rgb(0, 255, 255),   rgb(0, 0, 255), rgb(128, 0, 255), rgb(255, 0, 255)};

// Black or white, whichever is seen on a colour.
Color contrast(Color color) {
  const Rgb parts = colorParts(color);
  const int brightness = parts[0] + parts[1] + parts[2];
  return brightness > 3 * 127 ? rgb(0, 0, 0) : rgb(255, 255, 255);
}

std::vector<PictureBox::Line> sides(int x1, int y1, int x2, int y2, Color color) {
  return {{x1, y1, x2, y1, color},
          {x1, y2, x2, y2, color},
          {x1, y1, x1, y2, color},
          {x2, y1, x2, y2, color}};
}

}  // namespace

MxPaintForm::MxPaintForm(Engine& engine)
    : EffectDialog(engine, "MxPaintForm", "Painting", ""),
      Bild("Bild", {kBildSize, kBildSize}, {.toolTip = "the picture; draw with the mouse"},
           kAroundTheGrid),
      PColor("PColor", {.toolTip = "the drawing colour; click to mix another", .label = "Color : "},
             rgb(255, 0, 0)),
      PPoint("PPoint", Icon::Point, {.toolTip = "Point"}),
      PLine("PLine", Icon::Line, {.toolTip = "Line"}),
      PRect("PRect", Icon::FilledRectangle, {.toolTip = "Filled Rectangle"}),
      PRect2("PRect2", Icon::Rectangle, {.toolTip = "Rectangle"}),
      PCircle("PCircle", Icon::FilledCircle, {.toolTip = "Filled Circle"}),
      PCircle2("PCircle2", Icon::Circle, {.toolTip = "Circle"}),
      PFill("PFill", Icon::Replace, {.toolTip = "Replace colour, everywhere"}),
      PGet("PGet", {.caption = "Get", .toolTip = "Get from other side"}),
      PUndo("PUndo", {.caption = "Undo", .toolTip = "Undo"}),
      PClear("PClear", {.caption = "Clear", .toolTip = "Clear"}),
      BUp("BUp", Icon::Arrow1, {.toolTip = "push up"}),
      BDown("BDown", Icon::Arrow5, {.toolTip = "push down"}),
      BLeft("BLeft", Icon::Arrow3, {.toolTip = "push left"}),
      BRight("BRight", Icon::Arrow7, {.toolTip = "push right"}),
      BUpLeft("BUpLeft", Icon::Arrow2, {.toolTip = "push up and left"}),
      BUpRight("BUpRight", Icon::Arrow8, {.toolTip = "push up and right"}),
      BDownLeft("BDownLeft", Icon::Arrow4, {.toolTip = "push down and left"}),
      BDownRight("BDownRight", Icon::Arrow6, {.toolTip = "push down and right"}),
      Cancel("Cancel", {.caption = "Cancel", .toolTip = "put the picture back as it was"}) {
  makePalette();
  add({&myName, &Bild, &PColor});
  for (const auto& box : myPalette) add({box.get()});
  add({&PPoint,  &PLine,    &PRect,     &PRect2,     &PCircle, &PCircle2, &PFill,
       &PGet,    &PUndo,    &PClear,    &BUp,        &BDown,   &BLeft,    &BRight,
       &BUpLeft, &BUpRight, &BDownLeft, &BDownRight, &OK,      &Cancel});
  setLayout(column({fields({myName}), row({tools(), column({Layout(Bild, 1), colors()}, 1)}, 1),
                    row({space(), OK, Cancel})}));
  bindTools();
  bindShifts();
  bindMouse();
  onLoad = [this] { chooseTool(kPoint); };
  onActivate = [this] {
    if (showsPicture()) drawPaint();
  };
  Cancel.onClick = [this] { Cancel_Click(); };
}

void MxPaintForm::makePalette() {
  for (std::size_t i = 0; i < kPalette.size(); ++i) {
    myPalette.push_back(std::make_unique<ColorBox>("myPalette(" + std::to_string(i) + ")",
                                                   Look{.toolTip = "draw in this colour"},
                                                   kPalette[i]));
    ColorBox& box = *myPalette.back();
    box.onClick = [this, &box] { PColor.setBackColor(box.backColor()); };
  }
}

Layout MxPaintForm::tools() {
  return column(
      {grid(2, {PPoint, PLine, PRect, PRect2, PCircle, PCircle2, PFill}), space(), PGet, PUndo,
       PClear, space(),
       grid(3, {BUpLeft, BUp, BUpRight, BLeft, space(), BRight, BDownLeft, BDown, BDownRight})});
}

Layout MxPaintForm::colors() {
  std::vector<Layout> boxes = {Layout(PColor, 2), space()};
  for (const auto& box : myPalette) boxes.emplace_back(*box, 1);
  return row(std::move(boxes));
}

std::array<std::pair<PictureButton*, std::int16_t>, 7> MxPaintForm::toolButtons() {
  return {{{&PPoint, kPoint},
           {&PLine, kLine},
           {&PRect, kFilledRectangle},
           {&PRect2, kRectangle},
           {&PCircle, kFilledCircle},
           {&PCircle2, kCircle},
           {&PFill, kReplace}}};
}

void MxPaintForm::bindTools() {
  for (const auto& [button, tool] : toolButtons())
    button->onClick = [this, chosen = tool] { chooseTool(chosen); };
  PColor.onClick = [this] {
    pickColor(engine_, PColor.backColor(), [this](korvane::Color c) { PColor.setBackColor(c); });
  };
  PGet.onClick = [this] { PGet_Click(); };
  PUndo.onClick = [this] { PUndo_Click(); };
  PClear.onClick = [this] { PClear_Click(); };
}

// The diagonal buttons push twice, and the deck shows the picture between.
void MxPaintForm::bindShifts() {
  BUp.onClick = [this] { shift(0, -1); };
  BDown.onClick = [this] { shift(0, 1); };
  BLeft.onClick = [this] { shift(-1, 0); };
  BRight.onClick = [this] { shift(1, 0); };
  const auto both = [](PictureButton& first, PictureButton& second) {
    return [&first, &second] {
      first.click();
      second.click();
    };
  };
  BUpLeft.onClick = both(BUp, BLeft);
  BUpRight.onClick = both(BUp, BRight);
  BDownLeft.onClick = both(BDown, BLeft);
  BDownRight.onClick = both(BDown, BRight);
}

void MxPaintForm::bindMouse() {
  Bild.onMouseDown = [this](int x, int y) { quietly([&] { Bild_MouseDown(x, y); }); };
  Bild.onMouseMove = [this](int x, int y) { quietly([&] { Bild_MouseMove(x, y); }); };
  Bild.onMouseUp = [this](int x, int y) { quietly([&] { Bild_MouseUp(x, y); }); };
  Bild.onClick = [this] { quietly([&] { Bild_Click(); }); };
  // The second of two quick clicks paints as well.
  Bild.onDblClick = Bild.onClick;
  Bild.onResize = [this] {
    Bild.setOverlay({});
    if (showsPicture()) drawPaint();
  };
}

// A stroke that can't be done leaves the picture as it is (docs/kept.md, paint-quiet).
void MxPaintForm::quietly(const std::function<void()>& handler) {
  try {
    handler();
  } catch (const Failure&) {
  } catch (const std::out_of_range&) {
  }
}

void MxPaintForm::fill() {
  Grid<korvane::Color>& picture = effect().paintPixels;
  growPicture(picture, engine_.v.matrixCols, engine_.v.matrixRows);
  paintBackup = picture;
  engine_.v.paintUndo = picture;
  myName.setText(effect().name);
  Bild.setOverlay({});
  if (engine_.desktop.active() == this) drawPaint();  // else it is about to be activated
}

// The window may stand open while the deck has gone on to another effect, or to a picture that
// missed a change of the grid.
bool MxPaintForm::showsPicture() {
  const Grid<korvane::Color>& picture = effect().paintPixels;
  return visible() && effect().type == kPaint && picture.cols() >= engine_.v.matrixCols &&
         picture.rows() >= engine_.v.matrixRows;
}

void MxPaintForm::gridChanged() {
  if (!visible()) return;
  Bild.setOverlay({});
  if (showsPicture()) drawCells();
}

PaintLayout MxPaintForm::layoutOfCells() const {
  return {engine_.v.matrixCols, engine_.v.matrixRows, Bild.width(), Bild.height()};
}

PaintArea MxPaintForm::area() {
  return {effect().paintPixels, engine_.v.matrixCols, engine_.v.matrixRows};
}

void MxPaintForm::drawCells() {
  const PaintLayout at = layoutOfCells();
  const PaintArea picture = area();
  Raster& canvas = Bild.canvas();
  canvas.fill(Bild.backColor());
  for (int col = 0; col < picture.cols; ++col) {
    for (int row = 0; row < picture.rows; ++row) {
      const int x = at.offsetX + col * at.cellSize;
      const int y = at.offsetY + row * at.cellSize;
      if (at.cellSize > 0) {
        canvas.fillRect(x, y, x + at.cellSize - 1, y + at.cellSize - 1,
                        rgb(colorParts(picture.cells.at(col, row))));
      }
    }
  }
  Bild.touched();
}

void MxPaintForm::drawPaint() {
  drawCells();
  renderPaint(engine_, deck());
}

void MxPaintForm::chooseTool(std::int16_t tool) {
  paintTool = tool;
  for (const auto& [button, its] : toolButtons()) button->setPressed(its == tool);
}

void MxPaintForm::Bild_MouseDown(int x, int y) {
  engine_.v.paintUndo = effect().paintPixels;
  paintStart_ = {toInt16(x), toInt16(y)};
  paintEnd_ = paintStart_;
  lineColor_ = PColor.backColor();
  Bild.setOverlay({});
}

void MxPaintForm::Bild_MouseMove(int x, int y) {
  if (Bild.buttonHeld()) {
    showRubberBand(x, y);
  } else {
    outlineCell(x, y);
  }
}

void MxPaintForm::Bild_MouseUp(int x, int y) {
  Bild.setOverlay({});
  paintEnd_ = {toInt16(x), toInt16(y)};
  applyTool();
}

void MxPaintForm::Bild_Click() {
  if (paintTool != kPoint) return;
  const PaintLayout at = layoutOfCells();
  area().set(at.column(paintEnd_.x), at.row(paintEnd_.y), PColor.backColor());
  drawPaint();
}

void MxPaintForm::applyTool() {
  const PaintLayout at = layoutOfCells();
  const PaintArea picture = area();
  const CellBox box = boxBetween(at, paintStart_, paintEnd_);
  const korvane::Color color = PColor.backColor();
  switch (paintTool) {
    case kLine:
      paintLine(picture, at, paintStart_, paintEnd_, color);
      break;
    case kFilledRectangle:
    case kRectangle:
      paintRectangle(picture, box, color, paintTool == kFilledRectangle);
      break;
    case kFilledCircle:
    case kCircle:
      paintCircle(picture, box, color, paintTool == kFilledCircle);
      break;
    case kReplace:
      replaceUnder(at, paintEnd_);
      break;
    default:
      return;
  }
  drawPaint();
}

// The margin's own colour stands for no cell, nor does a point beside the drawing area.
void MxPaintForm::replaceUnder(const PaintLayout& at, PaintPoint point) {
  const korvane::Color under = Bild.raster().pixel(point.x, point.y);
  const PaintArea picture = area();
  if (under < 0 || !picture.contains(at.column(point.x), at.row(point.y))) return;
  replaceColor(picture, under, PColor.backColor());
}

void MxPaintForm::showRubberBand(int x, int y) {
  if (paintTool == kLine) {
    Bild.setOverlay({{paintStart_.x, paintStart_.y, x, y, lineColor_}});
  } else if (paintTool != kPoint && paintTool != kReplace) {
    Bild.setOverlay(sides(paintStart_.x, paintStart_.y, x, y, lineColor_));
  }
}

void MxPaintForm::outlineCell(int x, int y) {
  const PaintLayout at = layoutOfCells();
  const PaintArea picture = area();
  const int col = at.column(x);
  const int row = at.row(y);
  if (!picture.contains(col, row)) return Bild.setOverlay({});
  const int left = at.offsetX + col * at.cellSize;
  const int top = at.offsetY + row * at.cellSize;
  Bild.setOverlay(sides(left, top, left + at.cellSize - 1, top + at.cellSize - 1,
                        contrast(picture.cells.at(col, row))));
}

void MxPaintForm::shift(int right, int down) {
  shiftPicture(area(), right, down);
  drawPaint();
}

void MxPaintForm::PClear_Click() {
  engine_.v.paintUndo = effect().paintPixels;
  const PaintArea picture = area();
  paintRectangle(picture, {0, 0, picture.cols - 1, picture.rows - 1}, engine_.v.colorBlack, true);
  drawPaint();
}

void MxPaintForm::restore(const Grid<korvane::Color>& kept) {
  effect().paintPixels = kept;
  growPicture(effect().paintPixels, engine_.v.matrixCols, engine_.v.matrixRows);
}

void MxPaintForm::PUndo_Click() {
  restore(engine_.v.paintUndo);
  drawPaint();
}

void MxPaintForm::PGet_Click() {
  const Deck& other = deck().isB() ? engine_.v.A : engine_.v.B;
  const PaintArea picture = area();
  for (int col = 0; col < picture.cols; ++col) {
    for (int row = 0; row < picture.rows; ++row)
      picture.set(col, row, rgb(other.frame.at(col, row)));
  }
  drawPaint();
}

void MxPaintForm::Cancel_Click() {
  restore(paintBackup);
  renderPaint(engine_, deck());
  engine_.desktop.hide(*this);
}

}  // namespace korvane
