#pragma once

#include "PanelView/CardGround.h"
#include "Presentation/CardRow.h"

#include <QImage>

#include <deque>

namespace mimkins {

struct CardLook;

/// The grounds of cards as pictures. A card that grows from frame to frame looks the same between its ends,
/// and so do cards with the same mood: each kind is drawn once and as low as it can be.
class CardPlates {
public:
    struct Place {
        QSize size;   ///< of the widget
        int room = 0; ///< around the card on all sides
        double pixelRatio = 1;
    };

    /// The ground of a row's card. All calls are for the same look.
    QImage picture(const Place& place, const CardRow& row, const CardLook& look, CardStates states);

private:
    struct Kind {
        int width = 0;
        double pixelRatio = 1;
        Mood mood = Mood::idle;
        bool waiting = false;
        CardStates states;

        friend bool operator==(const Kind&, const Kind&) = default;
    };

    struct Plate {
        Kind kind;
        QImage low;
    };

    const QImage& lowPlate(const Kind& kind, const Place& place, const CardRow& row, const CardLook& look);

    std::deque<Plate> plates_; ///< the youngest first
};

} // namespace mimkins
