#include "Setup/SelectableText.h"

#include "Drawing/Qt/Conversions.h"
#include "Presentation/Accent.h"
#include "Setup/SetupKit.h"

#include <QPainter>
#include <QTextDocument>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

constexpr int usualWidth = 220;
constexpr int margin = 2; ///< for the outline that shows the keyboard

} // namespace

SelectableText::SelectableText(double points) : points_(points) {
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setContextMenuPolicy(Qt::NoContextMenu);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(margin);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void SelectableText::setLook(const CardLook& look) {
    setFont(look.typography.systemFont(points_));
    QPalette colors = palette();
    colors.setColor(QPalette::Text, qt::color(look.theme->subtext));
    colors.setColor(QPalette::Highlight, qt::color(accent(*look.theme).faded(0.35)));
    colors.setColor(QPalette::HighlightedText, qt::color(look.theme->text));
    setPalette(colors);
    ring_ = qt::color(look.theme->text.faded(0.85));
    updateGeometry();
}

void SelectableText::setWords(const QString& words) {
    if (this->words() != words) {
        setPlainText(words);
        updateGeometry();
    }
}

int SelectableText::heightForWidth(int width) const {
    QTextDocument measured;
    measured.setDefaultFont(font());
    measured.setDocumentMargin(margin);
    measured.setDefaultTextOption(document()->defaultTextOption());
    measured.setPlainText(words());
    measured.setTextWidth(width);
    return static_cast<int>(std::ceil(measured.size().height()));
}

QSize SelectableText::sizeHint() const {
    return {usualWidth, heightForWidth(std::max(width(), usualWidth))};
}

QSize SelectableText::minimumSizeHint() const {
    return {1, 1};
}

void SelectableText::paintEvent(QPaintEvent* event) {
    QTextEdit::paintEvent(event);
    if (hasFocus()) {
        QPainter painter(viewport());
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(ring_, 1));
        painter.drawRoundedRect(QRectF(viewport()->rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    }
}

void SelectableText::wheelEvent(QWheelEvent* event) {
    event->ignore(); // the screen scrolls
}

} // namespace mimkins
