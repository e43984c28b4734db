#include "output/Preview.h"

#include "output/CellSquares.h"
#include "output/MatrixCode.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

Squares::Square squareOf(const Frame& frame, const PreviewGeometry& at, int col, int row) {
  return {col * at.cell + at.left, row * at.cell + at.top, rgb(frame.at(col, row))};
}

void drawGrid(const Variablen& v, PictureBox& box, const Frame& frame, const PreviewGeometry& at) {
  if (box.blank()) return;
  drawCells(box, v, at.cell - 2, at.cell - 2,
            [&](int col, int row) { return squareOf(frame, at, col, row); });
}

void drawPoint(const Variablen& v, PictureBox& box, const Frame& frame, const PreviewGeometry& at,
               int col, int row) {
  drawCell(box, v, at.cell - 2, at.cell - 2, col, row, squareOf(frame, at, col, row));
}

PreviewGeometry geometry(const Variablen& v, int width, int height) {
  const int pitch =
      v.matrixCols <= v.matrixRows ? divTrunc(height, v.matrixRows) : divTrunc(width, v.matrixCols);
  return {toInt16(pitch), toInt16(pitch - 1), toInt16(divTrunc(width - v.matrixCols * pitch, 2)),
          toInt16(divTrunc(height - v.matrixRows * pitch, 2))};
}

}  // namespace

void set_matrix_values(Engine& engine, PictureBox& box) {
  Variablen& v = engine.v;
  const bool isM = &box == &engine.master.picture;
  const PreviewGeometry found = geometry(v, box.width(), box.height());
  (isM ? v.previewM : v.previewA) = found;
  if (!isM) v.previewB = found;
  if (engine.mainWindow == nullptr || !engine.mainWindow->visible()) return;
  if (isM) return drawMatrixM(engine);
  drawMatrix(engine, &box == &v.A.picture ? v.A : v.B);
}

void fitPreviews(Engine& engine) {
  Variablen& v = engine.v;
  const std::initializer_list<PictureBox*> boxes = {&v.A.picture, &v.B.picture,
                                                    &engine.master.picture};
  for (PictureBox* box : boxes) box->clear();
  for (PictureBox* box : boxes) set_matrix_values(engine, *box);
}

void fitPictures(Engine& engine) {
  Variablen& v = engine.v;
  fitPreviews(engine);
  for (Deck* deck : {&v.A, &v.B}) deck->mini.resize(v.matrixCols, v.matrixRows);
}

void drawMatrix(Engine& engine, Deck& deck) {
  drawGrid(engine.v, deck.picture, deck.frame, deck.preview);
}

void drawPoint(Engine& engine, Deck& deck, std::int16_t col, std::int16_t row) {
  drawPoint(engine.v, deck.picture, deck.frame, deck.preview, col, row);
}

void drawMatrixM(Engine& engine) {
  drawGrid(engine.v, engine.master.picture, engine.v.frameM, engine.v.previewM);
}

void drawPointM(Engine& engine, std::int16_t col, std::int16_t row) {
  drawPoint(engine.v, engine.master.picture, engine.v.frameM, engine.v.previewM, col, row);
}

bool mixIsFree(const Engine& engine, std::int32_t stepAbove) {
  return mixIsFree(engine) || engine.master.timerM.interval() > stepAbove;
}

void mixAndDraw(Engine& engine) {
  mixFrame(engine, engine.v.masterValue);
  drawMatrixM(engine);
}

void mixAndDraw(Engine& engine, std::int16_t col, std::int16_t row) {
  mixCell(engine, engine.v.masterValue, col, row);
  drawPointM(engine, col, row);
}

void publishBetweenSteps(Engine& engine, Deck& deck) {
  drawMatrix(engine, deck);
  if (mixIsFree(engine, kSlowFadeFrame)) mixAndDraw(engine);
}

void publishDeckFrame(Engine& engine, Deck& deck) {
  drawMatrix(engine, deck);
  if (mixIsFree(engine)) mixAndDraw(engine);
}

}  // namespace korvane
