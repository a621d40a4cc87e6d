#pragma once

#include "PanelView/CardLook.h"
#include "PanelView/CardView.h"
#include "PanelView/FrameClock.h"
#include "Presentation/CardFlow.h"

#include <QScrollArea>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace mimkins {

/// The scrolling list of cards. Cards glide when their order changes, come in from the side and go out there.
class SessionList final : public QScrollArea {
public:
    explicit SessionList(CardLook look);
    ~SessionList() override;

    /// Called with a session's id when its card is activated.
    std::function<void(const std::string&)> onOpen;

    /// Shows these cards in this order.
    void setRows(const std::vector<CardRow>& rows, Date now);
    void setLook(const CardLook& look);
    void setNow(Date now);
    /// While paused nothing moves: changes show at once.
    void setPaused(bool paused);
    /// Shows the pets that can be seen as they are at a moment. Frames are counted: calm pets follow every
    /// second one.
    void animate(Date now, unsigned frame);
    /// Scrolls until the card is seen.
    void reveal(const std::string& id);

    /// The cards in display order, those that leave left out.
    std::vector<CardView*> cards() const;

    bool isMoving() const { return clock_.isRunning(); }

    const CardFlow& flow() const { return flow_; }

    /// Moves everything on by so many seconds. True if something still moves.
    bool step(double seconds);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    CardView* card(const CardRow& row, Date now);
    void arrange(CardFlow::Manner manner);
    void showPlaces();
    void dropGone();
    void moveFocus(int by);
    double cardWidth() const;

    CardLook look_;
    CardFlow flow_;
    QWidget* canvas_;
    std::map<std::string, CardView*> cards_;
    std::vector<std::string> order_;
    bool paused_ = false;
    FrameClock clock_;
};

} // namespace mimkins
