#pragma once

#include "Base/Date.h"
#include "PanelView/CardLook.h"
#include "Presentation/CrewRow.h"

#include <QImage>
#include <QPainter>
#include <QRectF>

#include <vector>

namespace mimkins {

/// The bobbing heads of a session's subtasks under its pet. Each head is drawn once and then only moved.
class CrewHeads {
public:
    /// Seconds between two of their frames.
    static constexpr double interval = 0.1;

    void setCrew(const CrewRow& crew, const CardLook& look);

    /// The size of the row, with the room to bob.
    QSizeF size() const;
    void draw(QPainter& painter, QPointF topLeft, Date at);

private:
    void prepare(double ratio);

    CrewRow crew_;
    PetLook look_;
    ColorScheme scheme_ = ColorScheme::dark;
    QFont font_;
    Color ink_;
    std::vector<QImage> heads_;
};

} // namespace mimkins
