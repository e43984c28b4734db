#include "views/qt/windows/Theme.h"

#include <QFont>
#include <QPalette>
#include <QStyleFactory>
#include <utility>

namespace korvane::qt {
namespace {

constexpr int kTextPixels = 14;

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

QString filledIn(QString sheet) {
  const std::pair<const char*, const char*> names[] = {
      {"{window}", theme::kWindow}, {"{well}", theme::kWell},         {"{face}", theme::kFace},
      {"{over}", theme::kFaceOver}, {"{line}", theme::kLine},         {"{text}", theme::kText},
      {"{quiet}", theme::kQuiet},   {"{disabled}", theme::kDisabled}, {"{accent}", theme::kAccent},
      {"{live}", theme::kLive},     {"{onAccent}", theme::kOnAccent},
  };
  for (const auto& [name, color] : names) sheet.replace(name, color);
  return sheet;
}

QPalette palette() {
  QPalette colors{QColor(theme::kFace), QColor(theme::kWindow)};
  const std::pair<QPalette::ColorRole, const char*> roles[] = {
      {QPalette::WindowText, theme::kText},
      {QPalette::Base, theme::kWell},
      {QPalette::AlternateBase, theme::kWindow},
      {QPalette::Text, theme::kText},
      {QPalette::PlaceholderText, theme::kDisabled},
      {QPalette::ButtonText, theme::kText},
      {QPalette::Mid, theme::kLine},
      {QPalette::Highlight, theme::kAccent},
      {QPalette::HighlightedText, theme::kOnAccent},
      {QPalette::ToolTipBase, theme::kFace},
      {QPalette::ToolTipText, theme::kText},
      {QPalette::Link, theme::kAccent},
      {QPalette::BrightText, theme::kLive},
  };
  for (const auto& [role, color] : roles) colors.setColor(role, QColor(color));
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    colors.setColor(QPalette::Disabled, role, QColor(theme::kDisabled));
  }
  return colors;
}

}  // namespace

void applyTheme(QApplication& application) {
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setPalette(palette());
  // The lists are in Verdana; where there is none, they and all the rest are in one other font.
  QFont font;
  font.setFamilies({"Verdana", "Inter", "Noto Sans", "Segoe UI", "DejaVu Sans"});
  font.setPixelSize(kTextPixels);
  QApplication::setFont(font);
  application.setStyleSheet(filledIn(kSheet));
}

}  // namespace korvane::qt
