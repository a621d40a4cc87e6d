#include "SettingsView/LabelledRow.h"

#include "Drawing/Qt/Conversions.h"
#include "SettingsView/ControlDrawing.h"

#include <QEvent>
#include <QMouseEvent>

#include <algorithm>

namespace mimkins {

namespace {

constexpr double labelColumn = 104;
constexpr int spacing = 10;
constexpr int hintGap = 1;
constexpr int belowGap = 5;
constexpr double labelPoints = 12;
constexpr double hintPoints = 10;

} // namespace

LabelledRow::LabelledRow(const Parts& parts)
    : label_(new Words(parts.label, {labelPoints, QFont::Medium, Words::Ink::text, 0})),
      control_(parts.control), place_(parts.place), bleed_(parts.bleed) {
    label_->setParent(this);
    label_->setBuddy(control_);
    if (!parts.hint.empty()) {
        hint_ = new Words(parts.hint, {hintPoints, QFont::Normal, Words::Ink::subtext, 0});
        hint_->setParent(this);
    }
    control_->setParent(this);
    control_->setAccessibleName(qt::text(parts.label));
    control_->setAccessibleDescription(qt::text(parts.hint));
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void LabelledRow::setLook(const CardLook& look) {
    column_ = controls::scaled(look, labelColumn);
    label_->setLook(look);
    if (hint_ != nullptr) {
        hint_->setLook(look);
    }
    updateGeometry();
    arrange();
}

int LabelledRow::wordsHeight(int width) const {
    const int label = label_->heightForWidth(width);
    return hint_ == nullptr ? label : label + hintGap + hint_->heightForWidth(width);
}

int LabelledRow::controlHeight(int width) const {
    return control_->hasHeightForWidth() ? control_->heightForWidth(width) : control_->sizeHint().height();
}

LabelledRow::Geometry LabelledRow::besides(int labelWidth, int controlLeft, int controlWidth) const {
    const int words = wordsHeight(labelWidth);
    const int control = controlHeight(controlWidth);
    Geometry geometry;
    geometry.height = std::max(words, control);
    const int top = (geometry.height - words) / 2;
    const int label = label_->heightForWidth(labelWidth);
    geometry.label = {0, top, labelWidth, label};
    geometry.hint = {0, top + label + hintGap, labelWidth, words - label - hintGap};
    geometry.control = {controlLeft, (geometry.height - control) / 2, controlWidth, control};
    return geometry;
}

LabelledRow::Geometry LabelledRow::below(int width) const {
    const int words = wordsHeight(width);
    const int label = label_->heightForWidth(width);
    Geometry geometry;
    geometry.label = {0, 0, width, label};
    geometry.hint = {0, label + hintGap, width, words - label - hintGap};
    geometry.control = {0, words + belowGap, width, controlHeight(width)};
    geometry.height = geometry.control.bottom() + 1;
    return geometry;
}

LabelledRow::Geometry LabelledRow::geometryAt(int width) const {
    const int natural = control_->sizeHint().width() - 2 * bleed_;
    switch (place_) {
    case Place::trailing:
        return besides(std::max(width - spacing - natural, 1), width - natural, natural);
    case Place::beside:
        if (const int rest = width - column_ - spacing; rest >= natural) {
            return besides(column_, column_ + spacing, rest);
        }
        break;
    case Place::below:
        break;
    }
    return below(width);
}

int LabelledRow::heightForWidth(int width) const {
    return geometryAt(width - contentsMargins().right()).height + contentsMargins().top();
}

QSize LabelledRow::sizeHint() const {
    const int width = column_ + spacing + control_->sizeHint().width();
    return {width, heightForWidth(width)};
}

QSize LabelledRow::minimumSizeHint() const {
    return {control_->minimumSizeHint().width(), control_->minimumSizeHint().height()};
}

void LabelledRow::arrange() {
    const Geometry geometry = geometryAt(width() - contentsMargins().right());
    const int top = contentsMargins().top();
    label_->setGeometry(geometry.label.translated(0, top));
    if (hint_ != nullptr) {
        hint_->setGeometry(geometry.hint.translated(0, top));
    }
    const int left = std::min(bleed_, geometry.control.left()); // nothing shows beyond the row
    control_->setGeometry(geometry.control.translated(0, top).adjusted(-left, 0, bleed_, 0));
}

void LabelledRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

void LabelledRow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()) && onPress) {
        onPress();
    }
}

/// A control asks its row for another size, for there is no layout that it could ask.
bool LabelledRow::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        arrange();
    }
    return QWidget::event(event);
}

} // namespace mimkins
