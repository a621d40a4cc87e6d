#include "SettingsView/FunRow.h"

#include <algorithm>

namespace mimkins {

namespace {

constexpr int gap = 8;

} // namespace

FunRow::FunRow() {
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void FunRow::add(CapsuleButton* button) {
    button->setParent(this);
    buttons_.push_back(button);
}

void FunRow::setLook(const CardLook& look) {
    for (auto* button : buttons_) {
        button->setLook(look);
    }
    updateGeometry();
    arrange();
}

int FunRow::widest() const {
    int width = 0;
    for (const auto* button : buttons_) {
        width = std::max(width, button->sizeHint().width());
    }
    return width;
}

int FunRow::buttonHeight() const {
    return buttons_.empty() ? 0 : buttons_.front()->sizeHint().height();
}

int FunRow::columns(int width) const {
    const auto count = static_cast<int>(buttons_.size());
    return count * widest() + (count - 1) * gap <= width ? std::max(count, 1) : 1;
}

int FunRow::heightForWidth(int width) const {
    const int count = columns(width - contentsMargins().right());
    const int rows = (static_cast<int>(buttons_.size()) + count - 1) / count;
    return rows * (buttonHeight() + gap) - gap + contentsMargins().top();
}

QSize FunRow::sizeHint() const {
    const auto count = static_cast<int>(buttons_.size());
    return {count * widest() + (count - 1) * gap, buttonHeight()};
}

QSize FunRow::minimumSizeHint() const {
    return {widest(), buttonHeight()};
}

void FunRow::arrange() {
    const int room = width() - contentsMargins().right();
    const int count = columns(room);
    const int side = (room - (count - 1) * gap) / count;
    for (int index = 0; index < static_cast<int>(buttons_.size()); ++index) {
        buttons_[static_cast<std::size_t>(index)]->setGeometry(
            index % count * (side + gap), contentsMargins().top() + index / count * (buttonHeight() + gap),
            side, buttonHeight()
        );
    }
}

void FunRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

} // namespace mimkins
