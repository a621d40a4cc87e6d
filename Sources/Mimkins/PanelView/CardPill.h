#pragma once

#include "PanelView/Chip.h"
#include "Presentation/Spring.h"
#include "Presentation/SubtasksPill.h"

#include <QAbstractButton>
#include <QRectF>

#include <optional>

namespace mimkins {

/// The button of the subtasks. It takes clicks, focus and tool tips; the card has it draw itself onto the
/// card, so that it shrinks and grows with it. It comes and goes with a fade.
class CardPill final : public QAbstractButton {
public:
    explicit CardPill(QWidget* card);

    /// What it says; nothing lets it go.
    void present(const std::optional<SubtasksPill>& pill);
    /// Shows this picture at a place of the card at its ordinary size. What was last shown is what fades out.
    void setPicture(const Chip& chip, const QRectF& place);

    /// Its place on the card.
    const QRectF& place() const { return place_; }

    /// Moves its fade on by so many seconds. True if it hasn't come to rest.
    bool step(double seconds) { return presence_.step(seconds); }

    void finish() { presence_.jump(presence_.target()); }

    bool isFading() const { return !presence_.atRest(); }

    /// Draws it onto the card, which may be seen through. `ring` is the colour that marks the focus.
    void draw(QPainter& painter, double opacity, const Color& ring) const;

protected:
    void paintEvent(QPaintEvent*) override {}

    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    Chip chip_;
    QRectF place_;
    Spring presence_;
};

} // namespace mimkins
