#pragma once

#include "Drawing/Color.h"
#include "Presentation/CardRow.h"

#include <QPainter>
#include <QRectF>

namespace mimkins {

struct CardLook;

/// What of a card's ground depends on the moment.
struct CardStates {
    bool hovering = false;
    bool focused = false;

    friend bool operator==(const CardStates&, const CardStates&) = default;
};

/// Shadow, ground, stripe and border of a card.
void drawCardGround(
    QPainter& painter, const QRectF& card, const CardRow& row, const CardLook& look, CardStates states
);

/// The soft light under a pet that stands in this square.
void drawPetPad(QPainter& painter, const QRectF& square, const Color& tint);

/// The frame of the card that the user is pointed at, and the mark in its corner.
void drawHighlight(QPainter& painter, const QRectF& card, const CardLook& look);

} // namespace mimkins
