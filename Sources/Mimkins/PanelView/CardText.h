#pragma once

#include "PanelView/Typography.h"
#include "Presentation/CardRow.h"

#include <QRectF>

#include <vector>

namespace mimkins {

/// The words of a card, each shortened to its place. No two places overlap, whatever the words and the size
/// of the font.
struct CardText {
    enum class Role { project, title, name, separator, mood, elapsed, activity };

    struct Run {
        Role role = Role::title;
        QString text;
        QFont font;
        QRectF rect; ///< from the text column's top left
    };

    std::vector<Run> runs;
    double height = 0;
};

/// Sets the words of a card in a column of this width. `elapsed` is the time since the session's state began.
CardText setCardText(const CardRow& row, const QString& elapsed, double width, const Typography& typography);

} // namespace mimkins
