#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QPainter>

#include "platform/Color.h"
#include "platform/Icons.h"

namespace korvane::qt {

/// The colour on the screen; system colours are resolved.
QColor toQColor(Color color);

/// Black or white, whichever is read better on a background.
QColor inkOn(const QColor& background);

/// As for plain colours.
double contrast(const QColor& one, const QColor& other);

/// Draws an icon into a square.
void drawIcon(QPainter& painter, Icon icon, const QRectF& square, const QColor& ink);

/// Enter and Return click the button, as space does.
void clickOnEnter(QAbstractButton& button);

}  // namespace korvane::qt
