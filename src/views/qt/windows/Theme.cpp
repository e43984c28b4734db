#include "views/qt/windows/Theme.h"

#include <QFont>
#include <QPalette>
#include <QStyleFactory>
#include <utility>

namespace korvane::qt {
namespace {

constexpr int kTextPixels = 14;

constexpr theme::Colors kDark = {.window = "#16181c",
                                 .well = "#0e1013",
                                 .face = "#2a2e36",
                                 .faceOver = "#343943",
                                 .line = "#3c424d",
                                 .text = "#e8eaee",
                                 .quiet = "#a3abb8",
                                 .disabled = "#6b7280",
                                 .accent = "#3d8fd9",
                                 .live = "#f2b340",
                                 .onAccent = "#ffffff"};
constexpr theme::Colors kLight = {.window = "#f1f2f4",
                                  .well = "#ffffff",
                                  .face = "#e1e4e9",
                                  .faceOver = "#d3d8df",
                                  .line = "#b4bbc6",
                                  .text = "#16181c",
                                  .quiet = "#4d5563",
                                  .disabled = "#8f97a3",
                                  .accent = "#1d6fc0",
                                  .live = "#965400",
                                  .onAccent = "#ffffff"};

// The words in braces are the colours of Theme.h.
constexpr const char* kSheet = R"(
QWidget { font-size: 14px; }
QToolTip { background: {face}; color: {text}; border: 1px solid {line}; padding: 5px; }

QGroupBox {
  border: 1px solid {line}; border-radius: 6px; margin-top: 11px; padding: 10px 4px 4px 4px;
}
QGroupBox::title {
  subcontrol-origin: margin; left: 12px; padding: 0 6px; color: {quiet}; background: {window};
}

QMenuBar { background: {face}; color: {text}; }
QMenuBar::item { padding: 6px 11px; background: transparent; }
QMenuBar::item:selected { background: {accent}; color: {onAccent}; }
QMenu { background: {face}; color: {text}; border: 1px solid {line}; padding: 4px 0; }
QMenu::item { padding: 6px 28px 6px 26px; }
QMenu::item:selected { background: {accent}; color: {onAccent}; }
QMenu::item:disabled { color: {disabled}; }
QMenu::separator { height: 1px; background: {line}; margin: 4px 0; }

QPushButton, QToolButton, QComboBox {
  background: {face}; color: {text}; border: 1px solid {line}; border-radius: 5px;
}
QPushButton { padding: 7px 14px; }
QPushButton:hover, QToolButton:hover, QComboBox:hover { background: {over}; }
QPushButton:pressed, QToolButton:pressed { background: {accent}; color: {onAccent}; }
QPushButton:focus, QToolButton:focus, QComboBox:focus { border: 2px solid {accent}; }
QPushButton:focus { padding: 6px 13px; }
QPushButton:disabled, QToolButton:disabled, QComboBox:disabled { color: {disabled}; }
QPushButton:checked { background: {accent}; border-color: {accent}; color: {onAccent}; }
QPushButton#menuItem:checked { background: {live}; border-color: {live}; color: {window}; }
QToolButton:checked { background: {accent}; border-color: {accent}; }
QToolButton:checked:focus { border: 2px solid {text}; }

QComboBox { padding: 6px 10px; combobox-popup: 0; }
QComboBox:focus { padding: 5px 9px; }
QComboBox::drop-down { border: none; width: 26px; }
QComboBox::down-arrow { image: none; }
QComboBox QAbstractItemView {
  background: {well}; color: {text}; border: 1px solid {line}; outline: none;
  selection-background-color: {accent}; selection-color: {onAccent};
}

QLineEdit, QPlainTextEdit, QSpinBox {
  background: {well}; color: {text}; border: 1px solid {line}; border-radius: 5px; padding: 6px 8px;
  selection-background-color: {accent}; selection-color: {onAccent};
}
QLineEdit:focus, QPlainTextEdit:focus, QSpinBox:focus { border: 2px solid {accent}; padding: 5px 7px; }
QLineEdit:disabled, QPlainTextEdit:disabled, QSpinBox:disabled { color: {disabled}; }
QSpinBox QLineEdit, QSpinBox QLineEdit:focus { border: none; padding: 0; }
QTreeView QLineEdit { padding: 0 4px; border-radius: 0; }

QTreeView, QListWidget {
  background: {well}; color: {text}; border: 1px solid {line}; border-radius: 3px;
  font-size: 13px; outline: none;
}
QTreeView:focus, QListWidget:focus { border: 1px solid {accent}; }
QListWidget::item { padding: 4px 8px; }
QListWidget::item:selected { background: {accent}; color: {onAccent}; }
QHeaderView::section {
  background: {window}; color: {quiet}; border: none; border-bottom: 1px solid {line};
  padding: 5px 8px;
}
QHeaderView { background: {window}; border: none; }

QScrollBar { background: {well}; margin: 0; }
QScrollBar:vertical { width: 12px; }
QScrollBar:horizontal { height: 12px; }
QScrollBar::handle { background: {line}; border-radius: 4px; margin: 2px; }
QScrollBar::handle:vertical { min-height: 28px; }
QScrollBar::handle:horizontal { min-width: 28px; }
QScrollBar::handle:hover { background: {disabled}; }
QScrollBar::add-line, QScrollBar::sub-line { height: 0; width: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: none; }

QCheckBox { spacing: 9px; padding: 4px 4px 4px 0; border: 2px solid transparent; border-radius: 5px; }
QCheckBox:focus { border-color: {accent}; }
QCheckBox::indicator {
  width: 18px; height: 18px; border: 1px solid {disabled}; border-radius: 4px; background: {well};
}
QCheckBox::indicator:hover { border-color: {text}; }
QCheckBox::indicator:checked { background: {live}; border: 1px solid {live}; }

QSlider { min-height: 30px; min-width: 30px; }
QSlider:horizontal { min-width: 160px; }
QSlider:vertical { min-height: 120px; }
QSlider::groove { background: {line}; border-radius: 3px; }
QSlider::groove:horizontal { height: 6px; margin: 0 2px; }
QSlider::groove:vertical { width: 6px; margin: 2px 0; }
QSlider::handle { background: {text}; border: 1px solid {window}; border-radius: 4px; }
QSlider::handle:horizontal { width: 16px; margin: -10px 0; }
QSlider::handle:vertical { height: 16px; margin: 0 -10px; }
QSlider::handle:focus { background: {accent}; }
QSlider::handle:disabled { background: {disabled}; }
QSlider:focus { border: 1px solid {accent}; border-radius: 5px; }
QLabel#number { color: {quiet}; }
QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
QDialogButtonBox QPushButton { min-width: 64px; }
)";

QString filledIn(QString sheet, const theme::Colors& colors) {
  const std::pair<const char*, const char*> names[] = {
      {"{window}", colors.window}, {"{well}", colors.well},         {"{face}", colors.face},
      {"{over}", colors.faceOver}, {"{line}", colors.line},         {"{text}", colors.text},
      {"{quiet}", colors.quiet},   {"{disabled}", colors.disabled}, {"{accent}", colors.accent},
      {"{live}", colors.live},     {"{onAccent}", colors.onAccent},
  };
  for (const auto& [name, color] : names) sheet.replace(name, color);
  return sheet;
}

QPalette palette(const theme::Colors& colors) {
  QPalette result{QColor(colors.face), QColor(colors.window)};
  const std::pair<QPalette::ColorRole, const char*> roles[] = {
      {QPalette::WindowText, colors.text},
      {QPalette::Base, colors.well},
      {QPalette::AlternateBase, colors.window},
      {QPalette::Text, colors.text},
      {QPalette::PlaceholderText, colors.disabled},
      {QPalette::ButtonText, colors.text},
      {QPalette::Mid, colors.line},
      {QPalette::Highlight, colors.accent},
      {QPalette::HighlightedText, colors.onAccent},
      {QPalette::ToolTipBase, colors.face},
      {QPalette::ToolTipText, colors.text},
      {QPalette::Link, colors.accent},
      {QPalette::BrightText, colors.live},
  };
  for (const auto& [role, color] : roles) result.setColor(role, QColor(color));
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    result.setColor(QPalette::Disabled, role, QColor(colors.disabled));
  }
  return result;
}

}  // namespace

const theme::Colors& theme::colors(Shade shade) { return shade == Shade::Dark ? kDark : kLight; }

void applyTheme(QApplication& application, Shade shade) {
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setPalette(palette(theme::colors(shade)));
  // The lists are in Verdana; where there is none, they and all the rest are in one other font.
  QFont font;
  font.setFamilies({"Verdana", "Inter", "Noto Sans", "Segoe UI", "DejaVu Sans"});
  font.setPixelSize(kTextPixels);
  QApplication::setFont(font);
  application.setStyleSheet(filledIn(kSheet, theme::colors(shade)));
}

}  // namespace korvane::qt
