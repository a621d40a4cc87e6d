#include "PanelView/SubtaskSummary.h"

#include "Drawing/Qt/Conversions.h"
#include "PanelView/AccessibleRole.h"
#include "PanelView/ReturnKey.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

#include <utility>

namespace mimkins {

namespace {

constexpr double hoverGround = 0.09;

} // namespace

SubtaskSummary::SubtaskSummary(Kind kind, CardLook look) : look_(std::move(look)), kind_(kind) {
    if (kind == Kind::button) {
        setAttribute(Qt::WA_Hover);
        setFocusPolicy(Qt::StrongFocus);
        setCursor(Qt::PointingHandCursor);
    } else {
        setFocusPolicy(Qt::NoFocus);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAccessibleRole(*this, QAccessible::StaticText);
    }
}

void SubtaskSummary::present(Symbol symbol, const std::string& words) {
    symbol_ = symbol;
    setText(qt::text(words));
    setAccessibleName(text());
    update();
}

void SubtaskSummary::setLook(const CardLook& look) {
    look_ = look;
    update();
}

Chip SubtaskSummary::chip() const {
    Chip chip = summaryChip(symbol_, text(), look_);
    if (kind_ == Kind::button && (underMouse() || isDown())) {
        chip.ground = Gradient{look_.theme->text.faded(hoverGround)};
    }
    if (hasFocus()) {
        chip.outline = look_.theme->text.faded(0.85);
    }
    return chip;
}

double SubtaskSummary::heightNeeded() const {
    return chip().size().height();
}

bool SubtaskSummary::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) {
        update();
    }
    return QAbstractButton::event(event);
}

void SubtaskSummary::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space) {
        QAbstractButton::keyPressEvent(event);
    } else if (!pressByReturn(*this, *event)) {
        event->ignore();
    }
}

void SubtaskSummary::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    chip().fitted(width()).draw(painter, QRectF(rect()));
}

} // namespace mimkins
