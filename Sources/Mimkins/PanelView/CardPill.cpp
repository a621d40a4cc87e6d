#include "PanelView/CardPill.h"

#include <QKeyEvent>

namespace mimkins {

CardPill::CardPill(QWidget* card) : QAbstractButton(card) {
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
}

void CardPill::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else if (event->key() == Qt::Key_Space) {
        QAbstractButton::keyPressEvent(event);
    } else {
        event->ignore();
    }
}

bool CardPill::event(QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        parentWidget()->update();
    }
    return QAbstractButton::event(event);
}

} // namespace mimkins
