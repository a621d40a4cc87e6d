#pragma once

#include "PanelView/CardLook.h"
#include "PanelView/Chip.h"
#include "Presentation/CardRow.h"
#include "Presentation/SubtaskRows.h"

#include <QPainter>
#include <QRectF>

#include <vector>

namespace mimkins {

/// The words and badges of a card or a row, each shortened to its place. No two places overlap, whatever the
/// words and the size of the font.
struct CardText {
    enum class Role { project, title, name, separator, mood, elapsed, activity };
    enum class Badge { agent, effort, pill, model };

    struct Run {
        Role role = Role::title;
        QString text;
        QFont font;
        QRectF rect; ///< from the text column's top left
    };

    struct PlacedChip {
        Badge badge = Badge::model;
        Chip chip;
        QRectF rect;
    };

    std::vector<Run> runs;
    std::vector<PlacedChip> chips;
    double height = 0;

    /// Where a badge stands; nothing if the text has none of this kind.
    const PlacedChip* find(Badge badge) const;
    /// The first words of this role; nothing if the text has none.
    const Run* find(Role role) const;
};

/// Sets the words of a card in a column of this width. `elapsed` is the time since the session's state began.
CardText setCardText(const CardRow& row, const QString& elapsed, double width, const CardLook& look);

/// Puts another time into a text that was set before. False if the words might then be set otherwise, as with
/// a time that takes more room; the text is as it was then.
bool replaceElapsed(CardText& text, const QString& elapsed);

/// Sets the words of a subtask's row.
CardText setSubtaskText(const SubtaskRow& row, const QString& elapsed, double width, const CardLook& look);

/// Draws all but the button of the subtasks. `state` is the colour of the word that says the state.
void drawCardText(
    QPainter& painter, const CardText& text, QPointF topLeft, const PetTheme& theme, const Color& state
);

/// Draws the time alone.
void drawElapsed(QPainter& painter, const CardText& text, QPointF topLeft, const PetTheme& theme);

} // namespace mimkins
