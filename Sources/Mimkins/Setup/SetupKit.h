#pragma once

#include "PanelView/CardLook.h"

#include <QFont>
#include <QLabel>
#include <QString>

#include <string_view>

/// What the screens about the connection are made of.
namespace mimkins::kit {

/// The system's font, in the scale of the look.
QFont systemFont(const CardLook& look, double points, QFont::Weight weight = QFont::Normal);

/// A label whose lines break, at this alignment.
QLabel* wrappedLabel(Qt::Alignment alignment);

/// Gives a label its font and its colour.
void dress(QLabel& label, const QFont& font, const Color& color);

/// Shows words in a label. Words that are too long for any line break anywhere; whoever listens hears them
/// whole.
void show(QLabel& label, std::string_view words);

} // namespace mimkins::kit
