#pragma once

#include "HookInstaller/Connection.h"
#include "PanelView/CardLook.h"
#include "Presentation/SetupWords.h"
#include "Setup/PairRow.h"
#include "Setup/SelectableText.h"

#include <QLabel>
#include <QPointer>

#include <string>

class QMessageBox;
class QVBoxLayout;

namespace mimkins {

/// The block of the settings about the connection to the client: its state in one line, how other agents
/// connect themselves, and the way to take the application off the machine.
class ConnectionSettings final : public QWidget {
public:
    struct Parts {
        Connection& connection;
        AgentFiles files;
        std::string home; ///< the user's home folder
    };

    /// What it is given outlives the view.
    ConnectionSettings(Parts parts, const CardLook& look);
    ~ConnectionSettings() override;

    void setLook(const CardLook& look);

    const QLabel& state() const { return *state_; }

    PillButton& button() { return *button_; }

    const QLabel& message() const { return *message_; }

    const QWidget& promptRow() const { return *promptRow_; }

    PillButton& copyPromptButton() { return *copyPrompt_; }

    SelectableText& command() { return *command_; }

    PillButton& copyCommandButton() { return *copyCommand_; }

    PillButton& uninstallButton() { return *uninstall_; }

    /// The question that is open; null while none is.
    QMessageBox* alert() const;

protected:
    void showEvent(QShowEvent* event) override;

private:
    class Dot;
    class Divider;

    void makeState(QVBoxLayout& column);
    void makeOtherAgents(QVBoxLayout& column);
    void makeUninstall(QVBoxLayout& column);
    void showConnection();
    void press();
    void copy(const std::string& words, PillButton& button, std::string_view title);
    void askToUninstall();

    Parts parts_;
    CardLook look_;
    Dot* dot_ = nullptr;
    QLabel* state_ = nullptr;
    PillButton* button_ = nullptr;
    PairRow* stateRow_ = nullptr;
    QLabel* message_ = nullptr;
    Divider* faintDivider_ = nullptr;
    QLabel* otherAgents_ = nullptr;
    QLabel* promptHint_ = nullptr;
    QLabel* preview_ = nullptr;
    PillButton* copyPrompt_ = nullptr;
    PairRow* promptRow_ = nullptr;
    QLabel* commandHint_ = nullptr;
    SelectableText* command_ = nullptr;
    PillButton* copyCommand_ = nullptr;
    PairRow* commandRow_ = nullptr;
    Divider* divider_ = nullptr;
    PillButton* uninstall_ = nullptr;
    QPointer<QMessageBox> alert_;
    sigc::connection changed_;
};

} // namespace mimkins
