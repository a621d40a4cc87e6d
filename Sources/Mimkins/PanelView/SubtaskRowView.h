#pragma once

#include "Base/Date.h"
#include "PanelView/CardText.h"
#include "PanelView/PetPicture.h"
#include "Presentation/SubtaskRows.h"

#include <QPixmap>
#include <QWidget>

namespace mimkins {

/// One subtask in the list under a card: its small pet, and beside it what it does.
class SubtaskRowView final : public QWidget {
public:
    static constexpr double petPoints = 40;

    SubtaskRowView(SubtaskRow row, CardLook look, Date now);

    const SubtaskRow& row() const { return row_; }

    void setRow(const SubtaskRow& row, Date now);
    void setLook(const CardLook& look);
    /// Brings the elapsed time up to date; tells whether its text has changed.
    bool setNow(Date now);

    double opacity() const { return opacity_; }

    void setOpacity(double opacity);
    /// Draws the pet as it is at a moment.
    void animate(Date now);
    bool isCalm() const;

    Date moment() const { return moment_; }

    double heightFor(double width) const;
    /// The words and badges as they are set for the present size.
    CardText text() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    void describe();
    void refresh();
    void drawGround();
    CardText textFor(double width) const;
    const Color& stateColor() const;
    QPointF textCorner(const CardText& text) const;

    SubtaskRow row_;
    CardLook look_;
    QString elapsed_;
    double opacity_ = 1;
    Date moment_; ///< that the pet shows
    PetPicture pet_;
    QPixmap ground_; ///< all but the pet
    bool groundIsOld_ = true;
};

} // namespace mimkins
