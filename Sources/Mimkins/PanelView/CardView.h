#pragma once

#include "Base/Date.h"
#include "PanelView/CardLook.h"
#include "PanelView/CardText.h"
#include "Presentation/CardRow.h"

#include <QAbstractButton>
#include <QImage>
#include <QPixmap>

namespace mimkins {

/// One session in the drawer's list: the pet, and beside it project, title, state and activity. A click means
/// to open the session.
class CardView final : public QAbstractButton {
public:
    /// Room around the card, inside the widget, for its shadow.
    static constexpr int shadowRoom = 6;

    CardView(CardRow row, CardLook look, Date now);

    const CardRow& row() const { return row_; }

    void setRow(const CardRow& row, Date now);
    void setLook(const CardLook& look);
    /// Brings the elapsed time up to date; draws only if its text has changed.
    void setNow(Date now);
    void setOpacity(double opacity);
    /// Draws the pet as it is at a moment.
    void animate(Date now);

    Date moment() const { return moment_; }

    /// True if half the frames will do for what the pet is doing.
    bool isCalm() const;

    /// The height of the card, without the room for its shadow, when it is so wide.
    double heightFor(double width) const;

    /// The words as they are set for the present size.
    CardText text() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    QRectF cardRect() const;
    double leadingPadding() const;
    double textWidth(double cardWidth) const;
    void refresh();
    QRectF petSquare() const;
    void drawGround();
    void drawPad(QPainter& painter, const QRectF& square) const;
    void drawBackground(QPainter& painter, const QRectF& card) const;
    void drawEdge(QPainter& painter, const QRectF& card) const;
    void drawPet(QPainter& painter);
    void drawText(QPainter& painter, const QRectF& card) const;
    QColor runColor(CardText::Role role) const;
    void describe();

    CardRow row_;
    CardLook look_;
    QString elapsed_;
    double opacity_ = 1;
    Date moment_;    ///< that the pet shows
    QPixmap ground_; ///< all but the pet, kept from one of its frames to the next
    bool groundIsOld_ = true;
    QImage petImage_;
};

} // namespace mimkins
