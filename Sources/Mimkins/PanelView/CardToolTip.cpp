#include "PanelView/CardToolTip.h"

#include "Drawing/Qt/Conversions.h"

namespace mimkins {

namespace {

/// Nothing where the badge is a button with a tool tip of its own.
std::optional<QString> badgeToolTip(const CardRow& row, CardText::Badge badge) {
    switch (badge) {
    case CardText::Badge::agent:
        return agentToolTip;
    case CardText::Badge::effort:
        return qt::text(row.effort->toolTip);
    case CardText::Badge::model:
        return qt::text(row.model->toolTip);
    case CardText::Badge::pill:
        break;
    }
    return std::nullopt;
}

} // namespace

QString cardToolTip(const CardRow& row, const CardToolTipPlaces& places, QPointF place) {
    const QPointF inText = place - places.textCorner;
    for (const auto& placed : places.text.chips) {
        if (!placed.rect.contains(inText)) {
            continue;
        }
        if (const auto words = badgeToolTip(row, placed.badge)) {
            return *words;
        }
    }
    for (const auto& run : places.text.runs) {
        if (run.role == CardText::Role::project && run.rect.contains(inText)) {
            return qt::text(row.projectToolTip);
        }
    }
    if (row.crew && places.crew.contains(place)) {
        return qt::text(row.crew->toolTip);
    }
    return places.card.contains(place) ? qt::text(row.toolTip) : QString();
}

} // namespace mimkins
