#include "PanelView/CardPlates.h"

#include "PanelView/CardLook.h"
#include "PanelView/StretchedPicture.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

/// A drawer shows few kinds at a time; a width that is dragged about leaves many behind.
constexpr std::size_t mostPlates = 16;

QImage drawn(const CardPlates::Place& place, const CardRow& row, const CardLook& look, CardStates states) {
    QImage picture = clearPicture(place.size, place.pixelRatio);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const int room = place.room;
    const QRect card = QRect(QPoint(0, 0), place.size).adjusted(room, room, -room, -room);
    drawCardGround(painter, QRectF(card), row, look, states);
    return picture;
}

/// So high that corners and stripe keep their shape.
int lowHeight(int room, const CardLook& look) {
    constexpr double stripeEnd = 14;
    constexpr double halo = 4; // by which the corners of shadow and ring are wider
    const double corner = cornerReach * (look.theme->radius + halo);
    return 2 * (room + static_cast<int>(std::ceil(std::max(corner, stripeEnd)))) + 1;
}

} // namespace

QImage CardPlates::picture(const Place& place, const CardRow& row, const CardLook& look, CardStates states) {
    Place low = place;
    low.size.setHeight(lowHeight(place.room, look));
    if (place.size.height() <= low.size.height() || !canStretch(place.pixelRatio)) {
        return drawn(place, row, look, states);
    }
    const Kind kind{place.size.width(), place.pixelRatio, row.mood, row.waiting, states};
    const int height = place.size.height() * static_cast<int>(place.pixelRatio);
    return stretched(lowPlate(kind, low, row, look), height);
}

const QImage&
CardPlates::lowPlate(const Kind& kind, const Place& place, const CardRow& row, const CardLook& look) {
    const auto found = std::find_if(plates_.begin(), plates_.end(), [&kind](const Plate& plate) {
        return plate.kind == kind;
    });
    if (found != plates_.end()) {
        return found->low;
    }
    if (plates_.size() == mostPlates) {
        plates_.pop_back();
    }
    plates_.push_front({kind, drawn(place, row, look, kind.states)});
    return plates_.front().low;
}

} // namespace mimkins
