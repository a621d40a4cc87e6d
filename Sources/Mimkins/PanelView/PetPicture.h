#pragma once

#include "Base/Date.h"
#include "PanelView/CardLook.h"
#include "Pet/PetFrame.h"

#include <QImage>
#include <QPainter>

namespace mimkins {

/// Draws a pet, frame after frame, with memory that is taken once.
class PetPicture {
public:
    /// The pet as it is at a moment, in a square of this side. The picture lasts until the next call.
    const QImage& at(Date moment, double side, double pixelRatio, const Pet& pet, const CardLook& look);
    /// The same upon a ground, a square picture of this side in points. The picture lasts until the next
    /// call.
    const QImage& over(const QImage& ground, Date moment, double side, const Pet& pet, const CardLook& look);
    /// Draws the pet as it is at a moment in a square with this corner.
    void
    draw(QPainter& painter, QPointF topLeft, double side, const Pet& pet, const CardLook& look, Date moment);

private:
    void paint(Date moment, double side, const Pet& pet, const CardLook& look);

    QImage image_;
};

/// True if half the frames will do for what the pet is doing.
bool isCalm(const Pet& pet, const CardLook& look);

} // namespace mimkins
