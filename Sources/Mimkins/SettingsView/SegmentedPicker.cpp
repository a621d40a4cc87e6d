#include "SettingsView/SegmentedPicker.h"

#include "Drawing/Qt/Conversions.h"
#include "SettingsView/ControlDrawing.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace mimkins {

namespace {

constexpr double wordsPoints = 11;
constexpr double paddingX = 6;
constexpr double paddingY = 4;
constexpr int inset = 2; ///< of the segments in their track
constexpr int wrappedWords = static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextWordWrap);

} // namespace

Segment::Segment(const QString& words) : QRadioButton(words), look_(controls::plainLook()) {
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

void Segment::setLook(const CardLook& look) {
    look_ = look;
    updateGeometry();
    update();
}

QFont Segment::wordsFont() const {
    return look_.typography.systemFont(wordsPoints, QFont::Medium);
}

QSize Segment::sizeHint() const {
    const int width = controls::widthOf(text(), wordsFont()) + controls::scaled(look_, 2 * paddingX);
    return {width, heightForWidth(width)};
}

QSize Segment::minimumSizeHint() const {
    int width = 0;
    for (const auto& word : text().split(' ')) {
        width = std::max(width, controls::widthOf(word, wordsFont()));
    }
    return {width + controls::scaled(look_, 2 * paddingX), sizeHint().height()};
}

int Segment::heightForWidth(int width) const {
    constexpr int unlimited = 10'000;
    const int room = std::max(width - controls::scaled(look_, 2 * paddingX), 1);
    const QRect words =
        QFontMetrics(wordsFont()).boundingRect(QRect(0, 0, room, unlimited), wrappedWords, text());
    return words.height() + controls::scaled(look_, 2 * paddingY);
}

void Segment::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        event->ignore();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        break;
    default:
        QRadioButton::keyPressEvent(event);
    }
}

void Segment::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double radius = controls::radius(look_);
    const QRectF area(rect());
    // The ring lies apart from the fill, so that it shows in front of any colour.
    const double gap = hasFocus() && isChecked() ? 2.5 : 0;
    const QRectF pill = area.adjusted(gap, gap, -gap, -gap);
    if (isChecked()) {
        controls::fillRounded(painter, pill, radius - gap / 2, controls::accent(look_));
    } else if (underMouse()) {
        controls::fillRounded(painter, pill, radius, qt::color(look_.theme->text.faded(0.08)));
    }
    if (hasFocus()) {
        controls::drawFocusRing(painter, area, radius, look_);
    }
    painter.setFont(wordsFont());
    painter.setPen(isChecked() ? controls::inkOnAccent(look_) : qt::color(look_.theme->text));
    const double padding = controls::scaled(look_, paddingX) - 1;
    painter.drawText(area.adjusted(padding, 0, -padding, 0), wrappedWords, text());
}

SegmentedPicker::SegmentedPicker(const std::vector<std::string_view>& options)
    : look_(controls::plainLook()) {
    for (const auto option : options) {
        auto* segment = new Segment(qt::text(option));
        segment->setParent(this);
        group_.addButton(segment, static_cast<int>(segments_.size()));
        segments_.push_back(segment);
    }
    connect(&group_, &QButtonGroup::idClicked, this, [this](int option) {
        if (onChoose) {
            onChoose(static_cast<std::size_t>(option));
        }
    });
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void SegmentedPicker::setChosen(std::optional<std::size_t> option) {
    if (option) {
        segments_.at(*option)->setChecked(true);
        giveTabToTheChecked(segments_);
        return;
    }
    group_.setExclusive(false);
    for (auto* segment : segments_) {
        segment->setChecked(false);
    }
    group_.setExclusive(true);
    giveTabToTheChecked(segments_);
}

std::optional<std::size_t> SegmentedPicker::chosen() const {
    const int option = group_.checkedId();
    return option >= 0 ? std::optional(static_cast<std::size_t>(option)) : std::nullopt;
}

void SegmentedPicker::setLook(const CardLook& look) {
    look_ = look;
    for (auto* segment : segments_) {
        segment->setLook(look);
    }
    updateGeometry();
    arrange();
    update();
}

int SegmentedPicker::naturalWidth() const {
    int width = 2 * inset;
    for (const auto* segment : segments_) {
        width += segment->sizeHint().width();
    }
    return width;
}

QSize SegmentedPicker::sizeHint() const {
    return {naturalWidth(), segments_.front()->sizeHint().height() + 2 * inset};
}

QSize SegmentedPicker::minimumSizeHint() const {
    int width = 0;
    for (const auto* segment : segments_) {
        width = std::max(width, segment->minimumSizeHint().width());
    }
    return {width + 2 * inset, sizeHint().height()};
}

int SegmentedPicker::heightForWidth(int width) const {
    if (width >= naturalWidth()) {
        return sizeHint().height();
    }
    int height = 2 * inset;
    for (const auto* segment : segments_) {
        height += segment->heightForWidth(width - 2 * inset);
    }
    return height;
}

void SegmentedPicker::arrangeInAColumn() {
    int top = inset;
    for (auto* segment : segments_) {
        const int height = segment->heightForWidth(width() - 2 * inset);
        segment->setGeometry(inset, top, width() - 2 * inset, height);
        top += height;
    }
}

void SegmentedPicker::arrange() {
    const auto count = static_cast<int>(segments_.size());
    if (width() < naturalWidth()) {
        arrangeInAColumn();
        return;
    }
    const int spare = width() - naturalWidth();
    int left = inset;
    for (int index = 0; index < count; ++index) {
        auto* segment = segments_[static_cast<std::size_t>(index)];
        const int share = spare * (index + 1) / count - spare * index / count;
        const int width = segment->sizeHint().width() + share;
        segment->setGeometry(left, inset, width, height() - 2 * inset);
        left += width;
    }
}

void SegmentedPicker::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

void SegmentedPicker::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        step(-1);
        break;
    case Qt::Key_Right:
    case Qt::Key_Down:
        step(1);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

/// From the option that has the keyboard.
void SegmentedPicker::step(int by) {
    const auto focused = std::find_if(segments_.begin(), segments_.end(), [](const Segment* segment) {
        return segment->hasFocus();
    });
    const auto place = static_cast<int>(focused - segments_.begin()) + by;
    if (focused == segments_.end() || place < 0 || place >= static_cast<int>(segments_.size())) {
        return;
    }
    auto* next = segments_[static_cast<std::size_t>(place)];
    next->setFocus(Qt::TabFocusReason);
    next->click();
}

void SegmentedPicker::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    controls::fillRounded(painter, rect(), controls::radius(look_) + inset, controls::ground(look_, {}));
}

} // namespace mimkins
