#pragma once

#include "PanelView/SubtaskRowView.h"
#include "PanelView/SubtaskSummary.h"
#include "Presentation/Spring.h"

#include <QWidget>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace mimkins {

/// The subtasks of a session, under its card: those that run, and behind a button those that have finished.
class SubtaskListView final : public QWidget {
public:
    /// How the finished ones come and go.
    static constexpr SpringFeel unfolding{0.35, 1};

    explicit SubtaskListView(CardLook look);

    /// The list wants to become longer or shorter by itself. What goes stays until the list is as short as it
    /// wants to be.
    std::function<void()> onHeightChange;

    void setRows(const SubtaskRows& rows, Date now);
    void setLook(const CardLook& look);
    /// Brings the elapsed times up to date; tells whether one of their texts has changed.
    bool setNow(Date now);
    /// Shows the pets in a part of the list as they are at a moment. Frames are counted: calm pets follow
    /// every second one.
    void animate(Date now, unsigned frame, const QRect& seen);

    double heightFor(double width) const;

    bool showsFinished() const { return showsFinished_; }

    /// The rows on show, from the top.
    const std::vector<SubtaskRowView*>& rows() const { return shown_; }

    SubtaskSummary& moreLine() const { return *more_; }

    SubtaskSummary& finishedButton() const { return *finished_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void bringUp(Date now);
    SubtaskRowView* row(const SubtaskRow& row, Date now);
    QStringList emptyLines(double width) const;
    QFont emptyFont() const;
    void place();
    void toggleFinished();
    void showUnfolding();
    double restingHeight(double width, std::size_t rows) const;

    CardLook look_;
    SubtaskRows content_;
    Date now_;
    bool showsFinished_ = false;
    bool isFolding_ = false; ///< the finished ones are on their way out
    std::map<std::string, SubtaskRowView*> known_;
    std::vector<SubtaskRowView*> shown_;
    std::size_t running_ = 0; ///< of those shown
    SubtaskSummary* more_;
    SubtaskSummary* finished_;
};

} // namespace mimkins
