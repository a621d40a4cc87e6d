#pragma once

#include "Drawing/Shading.h"
#include "Drawing/Symbols.h"
#include "PanelView/CardLook.h"
#include "Presentation/CardRow.h"

#include <QFont>
#include <QPainter>
#include <QRectF>
#include <QString>

#include <optional>
#include <vector>

namespace mimkins {

/// A small row of icons, words and dots on a ground of its own. Lengths are those on the screen.
struct Chip {
    struct Piece {
        std::optional<Symbol> symbol; ///< or words, or dots
        QString words;
        QFont font;
        double side = 0; ///< of the icon, or across a dot
        int dots = 0;
        int filled = 0; ///< of the dots
        Color ink;
        Color faint; ///< of the dots that aren't filled
    };

    std::vector<Piece> pieces;
    double spacing = 0;
    double paddingX = 0;
    double paddingY = 0;
    std::optional<double> radius; ///< of the corners; a capsule without one
    Gradient ground;              ///< from left to right; one colour fills evenly, none for none
    std::optional<Color> outline;

    QSizeF size() const;
    /// The same with its words shortened until it is no wider than this, as far as words can be.
    Chip fitted(double width) const;
    /// Draws it in the middle of the height of a place as wide as it is.
    void draw(QPainter& painter, const QRectF& place) const;
};

Chip agentChip(const QString& agent, const CardLook& look);
Chip effortChip(const EffortBadge& badge, const CardLook& look);

enum class PillForm { full, compact };

Chip pillChip(const SubtasksPill& pill, PillForm form, const Color& tint, const CardLook& look);
Chip modelChip(const ModelBadge& badge, const CardLook& look);
/// A line of the list of subtasks that sums some up.
Chip summaryChip(Symbol symbol, const QString& words, const CardLook& look);
/// The mark of the card that the user is pointed at.
Chip nextUpChip(const CardLook& look);

} // namespace mimkins
