#include "Interface/SetupFixture.h"
#include "Setup/ConnectionSettings.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPushButton>

namespace mimkins::test {

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using Status = HookInstaller::Status;

const AgentFiles files{"/opt/mimkins/share/mimkins/AGENT-SETUP.md", "/opt/mimkins/share/mimkins/bin/mimkin"};

class ConnectionBlock : public SetupFixture {
protected:
    void show() {
        view = std::make_unique<ConnectionSettings>(
            ConnectionSettings::Parts{connection(), files, folder.path()}, look()
        );
        view->resize(260, 420);
        view->show();
        QCoreApplication::processEvents();
    }

    std::string state() const { return view->state().accessibleName().toStdString(); }

    std::string message() const {
        return view->message().isVisible() ? view->message().accessibleName().toStdString() : "";
    }

    static void press(QAbstractButton& button) {
        QTest::mouseClick(&button, Qt::LeftButton);
        QCoreApplication::processEvents();
    }

    static QAbstractButton* answer(const QMessageBox& alert, const QString& words) {
        for (auto* button : alert.buttons()) {
            if (button->text() == words) {
                return button;
            }
        }
        return nullptr;
    }

    static std::string clipboard() { return QGuiApplication::clipboard()->text().toStdString(); }

    std::unique_ptr<ConnectionSettings> view;
};

TEST_F(ConnectionBlock, ConnectsAndDisconnects) {
    start();
    writeSettings(R"({"model":"x"})");
    show();
    EXPECT_EQ(state(), "Not connected to Claude Code");
    EXPECT_EQ(view->button().text(), "Connect");
    EXPECT_EQ(message(), "");
    press(view->button());
    EXPECT_EQ(state(), "Connected to Claude Code");
    EXPECT_EQ(view->button().text(), "Disconnect");
    EXPECT_THAT(message(), StartsWith("Connected. settings.json was backed up to "));
    EXPECT_EQ(connection().status(), Status::connected);
    press(view->button());
    EXPECT_EQ(state(), "Not connected to Claude Code");
    EXPECT_EQ(message(), "Disconnected. Mimkins' hook entries were removed; everything else is as it was.");
    EXPECT_THAT(readWhole(paths.clientSettings()), Not(HasSubstr("hooks")));
    EXPECT_TRUE(std::filesystem::exists(paths.hookScript()));
}

TEST_F(ConnectionBlock, UpdatesAnOldConnection) {
    start();
    connectAsOnceUponATime();
    show();
    EXPECT_EQ(state(), "Connected, but needs an update");
    EXPECT_EQ(view->button().text(), "Update");
    press(view->button());
    EXPECT_EQ(connection().status(), Status::connected);
}

TEST_F(ConnectionBlock, WithoutTheClientOtherAgentsStillConnect) {
    start(Client::missing);
    show();
    EXPECT_EQ(state(), "Claude Code isn't installed");
    EXPECT_FALSE(view->button().isVisible());
    EXPECT_TRUE(view->promptRow().isVisible());
    EXPECT_TRUE(view->copyPromptButton().isVisible());
    EXPECT_TRUE(view->command().isVisible());
    EXPECT_TRUE(view->uninstallButton().isVisible());
}

TEST_F(ConnectionBlock, LooksAfreshWheneverItAppears) {
    start();
    show();
    view->hide();
    connectAsOnceUponATime();
    view->show();
    EXPECT_EQ(state(), "Connected, but needs an update");
}

TEST_F(ConnectionBlock, CopiesThePrompt) {
    start();
    show();
    EXPECT_EQ(view->copyPromptButton().text(), "Copy setup prompt");
    EXPECT_EQ(view->promptRow().toolTip().toStdString(), agentPrompt(files, folder.path()));
    QGuiApplication::clipboard()->setText("before");
    press(view->copyPromptButton());
    EXPECT_EQ(clipboard(), agentPrompt(files, folder.path()));
    EXPECT_EQ(view->copyPromptButton().text(), "Copied");
    EXPECT_EQ(view->copyCommandButton().text(), "Copy");
}

TEST_F(ConnectionBlock, CopiesTheCommand) {
    start();
    show();
    EXPECT_EQ(view->command().words().toStdString(), linkCommand(files));
    press(view->copyCommandButton());
    EXPECT_EQ(clipboard(), linkCommand(files));
    EXPECT_EQ(view->copyCommandButton().text(), "Copied");
    EXPECT_EQ(view->copyPromptButton().text(), "Copy setup prompt");
    press(view->copyPromptButton());
    EXPECT_EQ(view->copyPromptButton().text(), "Copied");
    EXPECT_EQ(view->copyCommandButton().text(), "Copied"); // both stay
    press(view->copyCommandButton());
    EXPECT_EQ(clipboard(), linkCommand(files));
}

TEST_F(ConnectionBlock, CommandCanBeSelected) {
    start();
    show();
    view->command().selectAll();
    EXPECT_EQ(view->command().textCursor().selectedText().toStdString(), linkCommand(files));
}

TEST_F(ConnectionBlock, AsksBeforeItUninstalls) {
    start();
    show();
    press(view->button());
    EXPECT_EQ(view->alert(), nullptr);
    press(view->uninstallButton());
    ASSERT_NE(view->alert(), nullptr);
    EXPECT_EQ(view->alert()->text(), "Uninstall Mimkins?");
    EXPECT_EQ(view->alert()->informativeText().toStdString(), UninstallWords::message());
    const auto* uninstall = answer(*view->alert(), "Uninstall");
    const auto* cancel = answer(*view->alert(), "Cancel");
    ASSERT_NE(uninstall, nullptr);
    ASSERT_NE(cancel, nullptr);
    EXPECT_EQ(view->alert()->buttons().size(), 2);
    EXPECT_EQ(view->alert()->defaultButton(), cancel);
    EXPECT_EQ(view->alert()->escapeButton(), cancel);
    EXPECT_EQ(quits, 0);
}

TEST_F(ConnectionBlock, CancelChangesNothing) {
    start();
    show();
    press(view->button());
    const std::string settings = readWhole(paths.clientSettings());
    press(view->uninstallButton());
    press(*answer(*view->alert(), "Cancel"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(view->alert(), nullptr);
    EXPECT_EQ(quits, 0);
    EXPECT_EQ(readWhole(paths.clientSettings()), settings);
    press(view->uninstallButton()); // and it can be asked again
    EXPECT_NE(view->alert(), nullptr);
    QTest::keyClick(view->alert(), Qt::Key_Escape);
    EXPECT_EQ(quits, 0);
}

TEST_F(ConnectionBlock, UninstallEndsTheApplication) {
    start();
    writeSettings("{}");
    show();
    press(view->button());
    parts->login().set(true);
    ASSERT_TRUE(std::filesystem::exists(paths.autostartEntry()));
    press(view->uninstallButton());
    press(*answer(*view->alert(), "Uninstall"));
    EXPECT_EQ(quits, 1);
    EXPECT_FALSE(std::filesystem::exists(paths.support()));
    EXPECT_FALSE(std::filesystem::exists(paths.autostartEntry()));
    EXPECT_EQ(preferences.removals, 1);
    EXPECT_THAT(links.opened, testing::ElementsAre("file:///opt/mimkins/bin/mimkins"));
    EXPECT_EQ(readWhole(paths.clientSettings()), "{}\n");
}

TEST_F(ConnectionBlock, UninstallThatStopsSaysWhy) {
    start();
    show();
    press(view->button());
    writeSettings("no json");
    press(view->uninstallButton());
    press(*answer(*view->alert(), "Uninstall"));
    EXPECT_EQ(quits, 0);
    EXPECT_THAT(
        message(),
        StartsWith("Uninstall stopped: couldn't remove Mimkins' hooks from " + paths.clientSettings())
    );
    EXPECT_TRUE(std::filesystem::exists(paths.hookScript()));
}

TEST_F(ConnectionBlock, TellsItselfToThoseWhoListen) {
    start();
    show();
    for (auto* button :
         {&view->button(), &view->copyPromptButton(), &view->copyCommandButton(), &view->uninstallButton()}) {
        const auto* read = QAccessible::queryAccessibleInterface(button);
        EXPECT_EQ(read->role(), QAccessible::Button);
        EXPECT_EQ(read->text(QAccessible::Name), button->text());
        EXPECT_NE(button->focusPolicy(), Qt::NoFocus);
    }
}

class ConnectionLooks : public ConnectionBlock, public testing::WithParamInterface<double> {};

TEST_P(ConnectionLooks, FitEveryThemeAndWidth) {
    start();
    writeSettings("{}");
    show();
    press(view->button()); // a message with a long name
    for (const auto& each : PetTheme::all()) {
        theme = each.resolved(ColorScheme::light);
        for (const int width : {228, 268, 328}) {
            SCOPED_TRACE(testing::Message() << each.id << " " << width);
            view->setLook(look(GetParam()));
            EXPECT_LE(view->minimumSizeHint().width(), width);
            view->resize(width, view->heightForWidth(width));
            QCoreApplication::processEvents();
            for (const auto* label : view->findChildren<QLabel*>()) {
                if (label->isVisible() && label->window() == view.get()) {
                    EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                        << label->accessibleName().toStdString();
                }
            }
            EXPECT_GE(view->command().height(), view->command().heightForWidth(view->command().width()));
            for (const auto* button : view->findChildren<PillButton*>()) {
                const QRect place(button->mapTo(view.get(), QPoint()), button->size());
                EXPECT_TRUE(view->rect().contains(place)) << button->text().toStdString();
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Fonts, ConnectionLooks, testing::Values(1.0, 1.5, 2.0));

} // namespace

} // namespace mimkins::test
