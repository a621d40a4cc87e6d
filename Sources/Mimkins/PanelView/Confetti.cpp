#include "PanelView/Confetti.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/PainterCanvas.h"
#include "Drawing/Qt/Scheme.h"
#include "PanelView/AnimationTime.h"
#include "Theme/ThemeDrawing.h"

#include <QEvent>
#include <QPainter>
#include <QRegion>

namespace mimkins {

namespace {

constexpr double frameSeconds = 1.0 / 24;

QRegion papers(const QWidget& widget, double t) {
    QRegion region;
    for (const Rect& area :
         confettiAreas(t, {static_cast<double>(widget.width()), static_cast<double>(widget.height())})) {
        region += qt::rect(area).toAlignedRect();
    }
    return region;
}

} // namespace

Confetti::Confetti(QWidget* parent, RunLoop& loop) : QWidget(parent), loop_(loop) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    parent->installEventFilter(this);
    hide();
}

void Confetti::setParty(bool party) {
    if (party_ == party) {
        return;
    }
    party_ = party;
    moment_ = animationTime(loop_.now());
    setGeometry(parentWidget()->rect());
    setVisible(party);
    raise();
    keepTime();
}

void Confetti::setPaused(bool paused) {
    paused_ = paused;
    keepTime();
}

void Confetti::keepTime() {
    if (!party_ || paused_) {
        frames_.reset();
    } else if (!frames_) {
        frames_ = loop_.every(frameSeconds, [this] { advance(); });
    }
}

void Confetti::advance() {
    const double before = moment_;
    moment_ = animationTime(loop_.now());
    update(papers(*this, before) + papers(*this, moment_));
}

void Confetti::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PainterCanvas canvas(painter, systemScheme());
    GraphicsContext context(canvas);
    drawConfetti(context, moment_, {static_cast<double>(width()), static_cast<double>(height())});
}

bool Confetti::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace mimkins
