#pragma once

#include <QAbstractButton>

namespace mimkins {

/// Takes clicks, focus and tool tips for the button of the subtasks, which the card draws so that it shrinks
/// and grows with it.
class CardPill final : public QAbstractButton {
public:
    explicit CardPill(QWidget* card);

protected:
    void paintEvent(QPaintEvent*) override {}

    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
};

} // namespace mimkins
