#include "PanelView/PetStage.h"

#include "PanelView/AccessibleRole.h"

#include <QPainter>

#include <utility>

namespace mimkins {

PetStage::PetStage(QWidget* parent, Parts parts) : QWidget(parent), parts_(std::move(parts)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAccessibleRole(*this, QAccessible::Animation);
}

void PetStage::groundChanged() {
    ground_ = QImage();
    update();
}

void PetStage::paintEvent(QPaintEvent*) {
    const QPoint place = mapTo(window(), QPoint());
    if (ground_.isNull() || place != place_ || ground_.size() != size() * devicePixelRatioF()) {
        ground_ = parts_.ground();
        place_ = place;
    }
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source); // a plain copy
    painter.drawImage(0, 0, parts_.frame(ground_));
}

} // namespace mimkins
