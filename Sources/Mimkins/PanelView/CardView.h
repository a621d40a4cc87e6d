#pragma once

#include "Base/Date.h"
#include "PanelView/CardFrame.h"
#include "PanelView/CardLook.h"
#include "PanelView/CardPill.h"
#include "PanelView/CardText.h"
#include "PanelView/CrewHeads.h"
#include "PanelView/GlowRing.h"
#include "PanelView/PetPicture.h"
#include "PanelView/PetStage.h"
#include "Presentation/CardRow.h"
#include "Presentation/CardScale.h"

#include <QAbstractButton>
#include <QImage>

#include <functional>
#include <optional>

namespace mimkins {

/// One session in the drawer's list: the pet, and beside it project, title, state and activity. A click means
/// to open the session, and a request for its menu is passed on.
class CardView final : public QAbstractButton {
public:
    static constexpr int shadowRoom = CardFrame::shadowRoom;

    CardView(CardRow row, CardLook look, Date now);

    /// The button of the subtasks was pressed.
    std::function<void()> onToggleSubtasks;
    /// The card wants to be moved on by `step` until it comes to rest.
    std::function<void()> onMoves;

    const CardRow& row() const { return row_; }

    void setRow(const CardRow& row, Date now);
    void setLook(const CardLook& look);
    /// Brings the elapsed time up to date; draws only if its text has changed, and tells whether it has.
    bool setNow(Date now);
    void setOpacity(double opacity);
    /// Draws the pet, and what else moves, as it is at a moment.
    void animate(Date now);

    Date moment() const { return moment_; }

    /// Shows that the card was pressed.
    void press();

    /// True if half the frames will do for what the pet is doing.
    bool isCalm() const;

    /// Moves on by so many seconds what grows, shrinks and fades. True if it hasn't come to rest.
    bool step(double seconds);
    /// Comes to rest at once.
    void finish();

    double scale() const { return scale_.value(); }

    /// The height of the card, without the room for its shadow, when it is so wide.
    double heightFor(double width) const;

    /// The words and badges as they are set for the present size.
    const CardText& text() const;

    /// What the tool tip says at a place.
    QString toolTipAt(QPointF place) const;

    CardPill& pill() const { return *pill_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool hitButton(const QPoint& place) const override;
    bool event(QEvent* event) override;

private:
    CardFrame frame() const;
    const CardText& textFor(double width) const;
    QRectF textArea() const;
    QRectF timeArea() const;
    QRectF crewRect() const;
    QRectF onScreen(const QRectF& rect) const;
    GlowRing::Shape glowShape() const;
    void refresh();
    void describe();
    void startMoving();
    void placePill();
    bool mayStage() const;
    void placeStage();
    QImage plate(CardStates states) const;
    void keepGround();
    void drawGround();
    void drawTime();
    QImage petGround();
    void drawPictures(QPainter& painter, const QImage* pet);

    CardRow row_;
    CardLook look_;
    QString elapsed_;
    mutable std::optional<CardText> text_; ///< as it was last set
    mutable double textWidth_ = 0;         ///< that it was set for
    double opacity_ = 1;
    CardScale scale_;
    Date moment_;     ///< that the pet shows
    Date glowMoment_; ///< that glow and crew show
    CardPill* pill_;
    PetStage* stage_; ///< hidden while the pet is a part of the card's own picture
    QImage ground_;   ///< all that stands still
    double groundScale_ = 1;
    bool groundIsOld_ = true;
    bool timeIsOld_ = false; ///< and nothing else in it
    PetPicture pet_;
    GlowRing glow_;
    CrewHeads crew_;
};

} // namespace mimkins
