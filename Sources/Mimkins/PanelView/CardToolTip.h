#pragma once

#include "PanelView/CardText.h"
#include "Presentation/CardRow.h"

#include <QPointF>
#include <QRectF>
#include <QString>

namespace mimkins {

/// Where the parts of a card stand that have something to tell.
struct CardToolTipPlaces {
    CardText text;
    QPointF textCorner;
    QRectF crew; ///< empty without one
    QRectF card;
};

/// What a card's tool tip says at a place: that of the badge, the project or the crew that is there, else the
/// card's own. Empty for none.
QString cardToolTip(const CardRow& row, const CardToolTipPlaces& places, QPointF place);

} // namespace mimkins
