#pragma once

#include "PanelView/CardLook.h"
#include "PanelView/CardView.h"
#include "PanelView/FrameClock.h"
#include "PanelView/GentleScroll.h"
#include "PanelView/SessionEntry.h"
#include "PanelView/ThinScrollBar.h"
#include "Presentation/CardFlow.h"
#include "Presentation/CardMenu.h"

#include <QMenu>
#include <QPointer>
#include <QScrollArea>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mimkins {

/// The scrolling list of cards. Cards glide when their order changes, come in from the side and go out there.
class SessionList final : public QScrollArea {
public:
    explicit SessionList(CardLook look);
    ~SessionList() override;

    /// Called with a session's id when its card is activated.
    std::function<void(const std::string&)> onOpen;
    /// Called with a session's id when its list of subtasks is to open or shut.
    std::function<void(const std::string&)> onToggleSubtasks;
    /// Called with a session's id and what was chosen in its card's menu.
    std::function<void(const std::string&, const CardChoice&)> onChoose;

    /// Shows these cards in this order.
    void setRows(const std::vector<CardRow>& rows, Date now);
    void setLook(const CardLook& look);
    void setNow(Date now);

    void setQuickPrompts(std::vector<QuickPrompt> prompts) { quickPrompts_ = std::move(prompts); }

    /// While paused nothing moves: changes show at once.
    void setPaused(bool paused);
    /// Shows the pets that can be seen as they are at a moment. Frames are counted: calm pets follow every
    /// second one.
    void animate(Date now, unsigned frame);
    /// Scrolls until the card is seen.
    void reveal(const std::string& id);
    /// Scrolls there gently, unless paused.
    void glideTo(const std::string& id);

    /// The list of subtasks under a card; nothing if there is none.
    SubtaskListView* subtasks(const std::string& id) const;

    /// The menu of a card while it is open.
    QMenu* menu() const { return menu_; }

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
    void showRow(const CardRow& row, Date now);
    CardView* makeCard(const CardRow& row, Date now);
    SubtaskListView* makeSubtasks(CardView& card);
    void arrange(CardFlow::Manner manner, SpringFeel feel = {});
    CardFlow::Manner manner() const;
    void showPlaces();
    void dropGone();
    std::optional<std::size_t> focusedCard() const;
    void keepTabOrder();
    double cardWidth() const;
    std::optional<double> scrollFor(const std::string& id) const;
    void startMoving();
    void openMenu(const CardView& card, QPoint place);

    CardLook look_;
    CardFlow flow_;
    QWidget* canvas_;
    ThinScrollBar* bar_;
    std::map<std::string, SessionEntry> entries_;
    std::vector<std::string> order_;
    std::vector<QuickPrompt> quickPrompts_;
    QPointer<QMenu> menu_;
    GentleScroll scroll_;
    bool paused_ = false;
    FrameClock clock_;
};

} // namespace mimkins
