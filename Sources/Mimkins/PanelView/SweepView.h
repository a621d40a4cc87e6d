#pragma once

#include "PanelView/AllClearView.h"
#include "PanelView/SweepParts.h"
#include "PanelView/ThinScrollBar.h"

#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace mimkins {

/// The screen that says what is left before the user logs off: an all-clear, or up to four sections of rows.
class SweepView final : public QScrollArea {
public:
    explicit SweepView(CardLook look);

    /// Called when the user wants another look.
    std::function<void()> onCheck;
    /// Called with the link of a row that is pressed.
    std::function<void(const std::string&)> onOpen;

    /// Shows a report as it reads at `now`; none while the first one is being made.
    void present(const std::optional<SweepReport>& report, bool sweeping, Date now);
    void setLook(const CardLook& look);
    /// Shows the pet of the all-clear as it is at a moment.
    void animate(Date now);

    /// The words that stand for the whole while there is no report.
    const QLabel* checking() const { return checking_; }

    const AllClearView* allClear() const { return allClear_; }

    const std::vector<SweepHead*>& heads() const { return heads_; }

    const std::vector<SweepRow*>& rows() const { return rows_; }

    const QLabel* checked() const { return checked_; }

    CheckButton* button() const { return button_; }

private:
    bool hasShapeOf(const std::optional<SweepWords>& words) const;
    void rebuild(Date now);
    void addSections();
    void addFooter();
    void showWords();

    CardLook look_;
    ThinScrollBar* bar_;
    std::optional<SweepWords> words_;
    bool sweeping_ = false;
    QVBoxLayout* column_ = nullptr;
    QLabel* checking_ = nullptr;
    AllClearView* allClear_ = nullptr;
    std::vector<SweepHead*> heads_;
    std::vector<SweepRow*> rows_;
    QLabel* checked_ = nullptr;
    CheckButton* button_ = nullptr;
};

} // namespace mimkins
