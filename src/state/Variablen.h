#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Grid.h"
#include "platform/TimerQueue.h"
#include "state/Boolean.h"
#include "state/Deck.h"
#include "state/Effect.h"
#include "state/Host.h"
#include "state/Matrix.h"

namespace korvane {

/// The shared state: read and written directly by every part, on the window thread alone. What
/// belongs to a deck lives in A or B; what the rest reads by its name with the suffix has it here.
struct Variablen {
  explicit Variablen(TimerQueue& timers) : A(Side::A, timers), B(Side::B, timers) {}

  Deck A;
  Deck B;

  // Matrix geometry and its mapping.
  Matrix matrix;
  std::int16_t &matrixCols = matrix.cols, &matrixRows = matrix.rows;
  Boolean matrixConfigured;  ///< a definition exists since start
  Boolean quickConfigured;   ///< the last change of the map came from the quick configuration
  Boolean configChanged;     ///< set by the definition windows, never read
  std::string matrixName;
  std::string projectName, projectBaseFilename, projectDirectory;
  std::string showFolder;  ///< of the project file loaded last; empty before
  ChannelMap& channelMap = matrix.channelMap;
  Grid<Boolean>& cellConfigured = matrix.cellConfigured;
  std::int32_t cellCol = 0, cellRow = 0;  ///< cell under edit in the definition windows

  // Frames.
  Frame &frameA = A.frame, &frameB = B.frame;
  Frame &frameWorkA = A.frameWork, &frameWorkB = B.frameWork;
  Frame frameM;         ///< the mixed picture
  Frame frameSent;      ///< the bytes that the host was given last
  Grid<float> fadeMap;  ///< 1.0: the cell shows deck B in the cell-wise fades

  // Preview geometry.
  PreviewGeometry &previewA = A.preview, &previewB = B.preview;
  PreviewGeometry previewM;

  // Effect lists.
  std::vector<Effect>&efxA = A.efx, &efxB = B.efx;
  std::vector<FadeEntry> efxX;
  std::int16_t &efxACount = A.efxCount, &efxBCount = B.efxCount;
  std::int16_t efxXCount = 0;
  std::int16_t &efxADeleted = A.efxDeleted, &efxBDeleted = B.efxDeleted;
  std::int16_t efxXDeleted = 0;
  std::vector<Boolean>&efxAEdited = A.efxEdited, &efxBEdited = B.efxEdited;
  std::int16_t &selA = A.sel, &selB = B.sel;
  std::int16_t selX = 0;
  std::int16_t editDeck = 0;  ///< 0: the open effect dialog edits deck A, else deck B
  Effect efxClipboard;

  // Master and fades.
  double masterValue = 0.5;  ///< 0 deck A - 1 deck B
  Boolean fadeRunning;
  std::int16_t fadeTypeNow = 0;
  double fadeTime = 3;  ///< seconds
  std::int16_t fadeSteps = 30;
  std::int32_t fadeStep = 0;
  std::int16_t fadeDirection = 1;  ///< 1 towards deck B, -1 towards deck A
  std::vector<std::int32_t> fadeOrder;

  // Decks.
  Boolean &beatOnA = A.beatOn, &beatOnB = B.beatOn;

  // Beat, output and windows.
  Boolean beatControlSeen;  ///< written by the dialogs' beat check boxes, never read
  Boolean outputActive;     ///< frames go to the host
  Boolean simActive;        ///< frames go to the simulation window
  Boolean simOpen;          ///< the simulation window fills the screen
  std::int16_t simCellW = 0, simCellH = 0, simLeft = 0, simTop = 0;
  std::int32_t maxChannels = 0;
  std::int32_t viewMode = 0;
  Host* host = nullptr;

  // Fixed colours, set when the main window loads.
  Color colorBlack = 0, colorWhite = 0, colorGray = 0, colorBlue = 0, colorRed = 0, colorGreen = 0,
        colorYellow = 0, colorFadeActive = 0, colorFadeIdle = 0;

  // Dialogs.
  Color pickedColor = 0;        ///< result of the colour mixer
  Color pickedColorBefore = 0;  ///< the colour that it started from
  Grid<Color> paintUndo;
};

}  // namespace korvane
