#include "PanelView/SlideWindow.h"

#include "Drawing/Qt/Shapes.h"
#include "PanelView/AccessibleRole.h"

#include <QEvent>
#include <QPolygon>
#include <QRegion>
#include <QWindow>

#include <cmath>

namespace mimkins {

SlideWindow::SlideWindow(QWidget* content) : content_(content) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    setWindowTitle("Mimkins");
    setAccessibleRole(*this, QAccessible::Window);
    setAccessibleName(windowTitle());
    content_->setParent(this);
    content_->show();
}

void SlideWindow::setFraction(double fraction) {
    fraction_ = fraction;
    placeContent();
}

void SlideWindow::setTranslucency(bool translucent) {
    translucent_ = translucent;
    placeContent();
}

void SlideWindow::setTakesKeyboard(bool takes) {
    takesKeyboard_ = takes;
    if (auto* window = windowHandle()) {
        window->setFlag(Qt::WindowDoesNotAcceptFocus, !takes);
    }
    if (takes) {
        activateWindow();
    }
}

void SlideWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placeContent();
}

/// Once another window has the keyboard, a click into this one leaves it there.
void SlideWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && takesKeyboard_ && !isActiveWindow()) {
        setTakesKeyboard(false);
    }
}

void SlideWindow::placeContent() {
    const int left = static_cast<int>(std::lround(width() * (1 - fraction_)));
    content_->setGeometry(left, 0, width(), height());
    QRegion visible(content_->geometry().intersected(rect()));
    if (!translucent_) {
        const auto shape = edgeShape(QRectF(content_->geometry()), drawerRadius);
        visible &= QRegion(shape.toFillPolygon().toPolygon());
    } else if (left == 0) {
        clearMask();
        return;
    }
    if (visible.isEmpty()) {
        visible = QRegion(width() - 1, 0, 1, 1); // an empty mask would count as none
    }
    setMask(visible);
}

} // namespace mimkins
