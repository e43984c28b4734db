#pragma once

#include <QApplication>

namespace korvane::qt {

/// The look of all windows: colours, type and shapes. Dark, for a place beside a stage.
namespace theme {
inline constexpr const char* kWindow = "#16181c";
inline constexpr const char* kWell = "#0e1013";  ///< lists, text boxes, monitors
inline constexpr const char* kFace = "#2a2e36";  ///< buttons
inline constexpr const char* kFaceOver = "#343943";
inline constexpr const char* kLine = "#3c424d";  ///< borders
inline constexpr const char* kText = "#e8eaee";
inline constexpr const char* kQuiet = "#a3abb8";  ///< labels, titles
inline constexpr const char* kDisabled = "#6b7280";
inline constexpr const char* kAccent = "#3d8fd9";  ///< focus, selection
inline constexpr const char* kLive = "#f2b340";    ///< what is going out now
inline constexpr const char* kOnAccent = "#ffffff";
}  // namespace theme

/// Gives a program this look.
void applyTheme(QApplication& application);

}  // namespace korvane::qt
