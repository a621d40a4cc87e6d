#pragma once

#include "PanelView/CardView.h"
#include "PanelView/SubtaskListView.h"
#include "Presentation/CardFlow.h"

#include <vector>

namespace mimkins {

/// The views of one session in the list: its card, and below it its subtasks while they are open and until
/// they have shut. The views belong to the list's canvas.
class SessionEntry {
public:
    explicit SessionEntry(CardView& card) : card_(&card) {}

    CardView& card() const { return *card_; }

    /// Nothing while they are shut.
    SubtaskListView* subtasks() const { return subtasks_; }

    void setSubtasks(SubtaskListView& subtasks) { subtasks_ = &subtasks; }

    void setLook(const CardLook& look);
    /// Brings the elapsed times up to date; true if it wants another height than was measured.
    bool setNow(Date now);
    /// Shows the pets in a part of the canvas as they are at a moment. Frames are counted: calm pets follow
    /// every second one.
    void animate(Date now, unsigned frame, const QRect& seen);

    /// What Tab stops at, in order.
    std::vector<QWidget*> tabStops() const;
    bool hasFocus() const;

    /// Finds out how high it wants to be at this width, and gives the height of it all.
    double measure(double width);

    /// The card's own part of what was last measured.
    double cardHeight() const { return cardHeight_; }

    /// Stands the views where the flow has them.
    void place(const CardFlow::Place& place, double width);
    /// Takes the views off the screen for good.
    void drop();

private:
    void dropSubtasks();

    CardView* card_;
    SubtaskListView* subtasks_ = nullptr;
    double cardHeight_ = 0; ///< when at rest
    double height_ = 0;     ///< of it all, when at rest
    double width_ = 0;      ///< at which it was measured
};

} // namespace mimkins
