#pragma once

#include "HookInstaller/Connection.h"
#include "PanelView/PanelScreen.h"
#include "PanelView/PetBox.h"
#include "Platform/Clock.h"
#include "Presentation/SetupWords.h"
#include "Setup/ButtonRow.h"
#include "Setup/ChangeBox.h"
#include "Setup/SelectableText.h"
#include "Setup/Unfolding.h"

#include <QLabel>

#include <functional>

namespace mimkins {

/// The welcome screen of the drawer: it says what connecting changes, and asks before it does so.
class SetupView final : public PanelScreen {
public:
    struct Parts {
        Connection& connection;
        const Clock& clock;
        std::function<void()> done; ///< leaves the screen
    };

    static constexpr double petSide = 96;

    /// What it is given outlives the view.
    SetupView(Parts parts, const CardLook& look);
    ~SetupView() override;

    void setLook(const CardLook& look) override;
    void animate(Date now) override;
    /// Shows the details of the change, or hides them.
    void setShowDetails(bool show, Unfolding::Motion motion);

    const PetBox& pet() const { return *pet_; }

    const QLabel& heading() const { return *heading_; }

    const QLabel& text() const { return *text_; }

    const ChangeBox& changes() const { return *changes_; }

    PillButton& detailsButton() { return *detailsButton_; }

    Unfolding& unfolding() { return *unfolding_; }

    SelectableText& details() { return *details_; }

    const QLabel& message() const { return *message_; }

    const std::vector<PillButton*>& buttons() const { return row_->buttons(); }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void makeColumn();
    void showConnection();
    void showPet();
    void showButtons();
    void press(SetupWords::Action action);

    Parts parts_;
    CardLook look_;
    SetupWords words_;
    PetBox* pet_;
    QLabel* heading_;
    QLabel* text_;
    ChangeBox* changes_;
    PillButton* detailsButton_;
    SelectableText* details_;
    Unfolding* unfolding_;
    QLabel* message_;
    ButtonRow* detailsRow_;
    ButtonRow* row_;
    sigc::connection changed_;
};

} // namespace mimkins
