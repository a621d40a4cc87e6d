#pragma once

#include "PanelView/CardLook.h"

#include <QColor>
#include <QFont>
#include <QMargins>
#include <QPainter>
#include <QRectF>
#include <QString>

/// What the controls of the settings draw with.
namespace mimkins::controls {

/// What a control looks like until it is told.
CardLook plainLook();

/// A length that grows with the font, in whole points.
int scaled(const CardLook& look, double points);

/// Of a control's corners.
double radius(const CardLook& look);

/// The desktop's colour of plain text, faded.
QColor primary(const CardLook& look, double opacity);

/// The colour of what is on or chosen, and what is read best on it.
QColor accent(const CardLook& look);
QColor inkOnAccent(const CardLook& look);

/// White, unless that can't be told from what is on.
QColor knobOnAccent(const CardLook& look);

/// How strongly something lies on its ground while it is left alone, under the pointer, or pressed.
struct Press {
    bool hovers = false;
    bool down = false;
};

/// The ground of something that can be pressed.
QColor ground(const CardLook& look, Press press);

void fillRounded(QPainter& painter, const QRectF& area, double radius, const QColor& color);

/// Strokes inside the edge.
void strokeRounded(QPainter& painter, const QRectF& area, double radius, const QPen& pen);

/// Outlines what has the keyboard, inside the edge.
void drawFocusRing(QPainter& painter, const QRectF& area, double radius, const CardLook& look);

/// How wide a text is on one line, rounded up.
int widthOf(const QString& words, const QFont& font);

} // namespace mimkins::controls
