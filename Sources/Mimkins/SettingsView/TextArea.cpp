#include "SettingsView/TextArea.h"

#include "Drawing/Qt/Conversions.h"
#include "SettingsView/ControlDrawing.h"

#include <QEvent>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

constexpr double wordsPoints = 11;
constexpr int paddingX = 8;
constexpr int paddingY = 6;
constexpr int leastLines = 2;
constexpr int mostLines = 4;

int linesOf(const QString& paragraph, const QFont& font, int width) {
    QTextLayout layout(paragraph, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    int lines = 0;
    for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        ++lines;
    }
    layout.endLayout();
    return std::max(lines, 1);
}

/// Whoever opens the field's menu comes back, and whoever leaves by Tab needs the keyboard for what comes
/// next.
bool goesOnWithKeys(Qt::FocusReason reason) {
    return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
           reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
}

} // namespace

TextArea::TextArea() : edit_(new QPlainTextEdit(this)), look_(controls::plainLook()) {
    edit_->setFrameShape(QFrame::NoFrame);
    edit_->setTabChangesFocus(true);
    edit_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    edit_->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    edit_->viewport()->setAutoFillBackground(false);
    edit_->document()->setDocumentMargin(0);
    edit_->installEventFilter(this);
    edit_->viewport()->installEventFilter(this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(paddingX, paddingY, paddingX, paddingY);
    column->addWidget(edit_);
    setFocusProxy(edit_);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connect(edit_, &QPlainTextEdit::textChanged, this, [this] {
        if (!showing_ && onChange) {
            onChange(edit_->toPlainText());
        }
        follow();
    });
}

void TextArea::setText(const QString& text) {
    if (edit_->toPlainText() == text) {
        return;
    }
    showing_ = true;
    edit_->setPlainText(text);
    showing_ = false;
}

void TextArea::setPlaceholder(const QString& words) {
    edit_->setPlaceholderText(words);
    follow();
}

void TextArea::setWords(const QString& name, const QString& description) {
    edit_->setAccessibleName(name);
    edit_->setAccessibleDescription(description);
}

void TextArea::setLook(const CardLook& look) {
    look_ = look;
    edit_->setFont(look_.typography.systemFont(wordsPoints));
    QPalette palette = edit_->palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, qt::color(look_.theme->text));
    palette.setColor(QPalette::PlaceholderText, qt::color(look_.theme->subtext));
    palette.setColor(QPalette::Highlight, controls::accent(look_));
    palette.setColor(QPalette::HighlightedText, controls::inkOnAccent(look_));
    edit_->setPalette(palette);
    follow();
    update();
}

/// The placeholder takes its room too, so that none of it is cut.
int TextArea::linesAt(int width) const {
    const QString text = edit_->toPlainText();
    const QString shown = text.isEmpty() ? edit_->placeholderText() : text;
    int lines = 0;
    for (const auto& paragraph : shown.split('\n')) {
        lines += linesOf(paragraph, edit_->font(), std::max(width - 2 * paddingX, 1));
    }
    return std::clamp(lines, leastLines, mostLines);
}

int TextArea::heightForWidth(int width) const {
    const double line = QFontMetricsF(edit_->font()).lineSpacing();
    return static_cast<int>(std::ceil(linesAt(width) * line)) + 2 * paddingY + 1;
}

QSize TextArea::sizeHint() const {
    return {200, heightForWidth(std::max(width(), 200))};
}

QSize TextArea::minimumSizeHint() const {
    return {80, heightForWidth(std::max(width(), 80))};
}

void TextArea::follow() {
    const int needed = heightForWidth(width());
    if (needed != height_) {
        height_ = needed;
        updateGeometry();
        if (onHeight) {
            onHeight();
        }
    }
}

void TextArea::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    follow();
}

bool TextArea::eventFilter(QObject* watched, QEvent* event) {
    const auto tell = [this](bool writing) {
        if (onWriting) {
            onWriting(writing);
        }
    };
    if (event->type() == QEvent::MouseButtonPress) {
        tell(true);
    } else if (watched == edit_ && event->type() == QEvent::FocusOut) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (!goesOnWithKeys(reason)) {
            tell(false);
        }
        update();
    } else if (watched == edit_ && event->type() == QEvent::FocusIn) {
        update();
    }
    return QWidget::eventFilter(watched, event);
}

void TextArea::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double radius = controls::radius(look_) + 2;
    const QRectF area(rect());
    controls::fillRounded(painter, area, radius, controls::primary(look_, 0.05));
    if (edit_->hasFocus()) {
        controls::drawFocusRing(painter, area, radius, look_);
    } else {
        controls::strokeRounded(painter, area, radius, QPen(controls::primary(look_, 0.25), 1));
    }
}

} // namespace mimkins
