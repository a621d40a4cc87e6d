#pragma once

#include "PanelView/CardLook.h"

#include <QFont>
#include <QLabel>
#include <QString>

#include <optional>
#include <string>
#include <string_view>

/// What the screens about the connection are made of.
namespace mimkins::kit {

/// A label whose lines break, at this alignment.
QLabel* wrappedLabel(Qt::Alignment alignment);

/// Shows words in a label. Words that are too long for any line break anywhere; whoever listens hears them
/// whole.
void show(QLabel& label, std::string_view words);

/// Shows what came of the last action in a label, or hides it. News is told to whoever listens.
void showMessage(QLabel& label, const std::optional<std::string>& message);

} // namespace mimkins::kit
