#pragma once

#include <QApplication>

namespace korvane::qt {

/// Dark, for a place beside a stage, or light, for one in the sun.
enum class Shade { Dark, Light };

namespace theme {

/// The colours of all windows.
struct Colors {
  const char* window;
  const char* well;  ///< lists, text boxes, monitors
  const char* face;  ///< buttons
  const char* faceOver;
  const char* line;  ///< borders
  const char* text;
  const char* quiet;  ///< labels, titles
  const char* disabled;
  const char* accent;  ///< focus, selection
  const char* live;    ///< what is going out now
  const char* onAccent;
};

const Colors& colors(Shade shade);

}  // namespace theme

/// Gives a program its look: colours, type and shapes. Windows that are open follow.
void applyTheme(QApplication& application, Shade shade = Shade::Dark);

}  // namespace korvane::qt
