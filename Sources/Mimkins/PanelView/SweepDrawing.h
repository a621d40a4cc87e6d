#pragma once

#include "PanelView/CardLook.h"

#include <QPainter>
#include <QStringList>
#include <QWidget>

#include <string>

/// What the parts of the wrap-up draw with.
namespace mimkins::sweep {

/// The lines that words take in a width, at most so many.
QStringList lines(const std::string& words, const QFont& font, double width, int most);

double heightOf(const QStringList& lines, const QFont& font);

/// Draws lines one below the other, and gives where the next would stand.
double drawLines(QPainter& painter, const QStringList& lines, const QRectF& area, Qt::Alignment alignment);

/// Outlines a widget that has the keyboard.
void drawFocus(QPainter& painter, const QWidget& widget, const Color& color, double radius);

} // namespace mimkins::sweep
