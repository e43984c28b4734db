#pragma once

#include <cstdint>

#include "platform/PictureBox.h"
#include "state/Engine.h"

namespace korvane {

/// Fits the grid to a preview box of the main window and redraws it if the window is visible. One
/// result serves both deck previews, which have the same size. kDivisionByZero for an empty matrix.
void set_matrix_values(Engine& engine, PictureBox& box);

/// Clears all previews and fits them to a grid that got another size.
void fitPreviews(Engine& engine);
/// So, and the pictures that Image effects sample.
void fitPictures(Engine& engine);

/// Repaints a deck's preview, or one cell of it.
void drawMatrix(Engine& engine, Deck& deck);
void drawPoint(Engine& engine, Deck& deck, std::int16_t col, std::int16_t row);
inline void drawMatrixA(Engine& engine) { drawMatrix(engine, engine.v.A); }
inline void drawMatrixB(Engine& engine) { drawMatrix(engine, engine.v.B); }

/// Repaints the preview of the mix, or one cell of it.
void drawMatrixM(Engine& engine);
void drawPointM(Engine& engine, std::int16_t col, std::int16_t row);

/// Interval of `timerM` in milliseconds above which a running fade leaves the decks room to mix on
/// their own: whole frames, single cells.
inline constexpr std::int32_t kSlowFadeFrame = 400;
inline constexpr std::int32_t kSlowFadeCell = 200;

/// No fade runs.
inline bool mixIsFree(const Engine& engine) { return !engine.v.fadeRunning; }
/// No fade runs, or the steps of the running one are longer than this.
bool mixIsFree(const Engine& engine, std::int32_t stepAbove);

/// Mixes at `masterValue` and draws the preview of the mix: the frame, or one cell.
void mixAndDraw(Engine& engine);
void mixAndDraw(Engine& engine, std::int16_t col, std::int16_t row);

/// The end of what still effects, images and transitions paint: the deck's preview, then the mix
/// and its preview, unless the steps of a running fade are too short for that.
void publishBetweenSteps(Engine& engine, Deck& deck);
/// The end of every other renderer: the deck's preview, then, if no fade runs, the mix and its
/// preview.
void publishDeckFrame(Engine& engine, Deck& deck);

}  // namespace korvane
