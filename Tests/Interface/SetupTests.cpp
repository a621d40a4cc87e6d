#include "Interface/SetupFixture.h"
#include "Setup/SetupView.h"

#include <QAccessible>
#include <QApplication>

namespace mimkins::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using Status = HookInstaller::Status;
using Kind = PillButton::Kind;

class Setup : public SetupFixture {
protected:
    void show() {
        view = std::make_unique<SetupView>(
            SetupView::Parts{connection(), loop, [this] { ++departures; }}, look()
        );
        view->resize(320, 700);
        view->show();
        QCoreApplication::processEvents();
    }

    std::vector<std::string> buttons() const {
        std::vector<std::string> titles;
        for (const auto* button : view->buttons()) {
            titles.push_back(button->text().toStdString());
        }
        return titles;
    }

    void press(std::size_t index) {
        QTest::mouseClick(view->buttons().at(index), Qt::LeftButton);
        QCoreApplication::processEvents();
    }

    std::string heading() const { return view->heading().accessibleName().toStdString(); }

    std::string message() const {
        return view->message().isVisible() ? view->message().accessibleName().toStdString() : "";
    }

    int departures = 0;
    std::unique_ptr<SetupView> view;
};

TEST_F(Setup, WelcomesANewUser) {
    start();
    show();
    EXPECT_EQ(heading(), "Welcome to Mimkins");
    EXPECT_THAT(view->text().accessibleName().toStdString(), StartsWith("A little pet for every"));
    EXPECT_TRUE(view->changes().isVisible());
    EXPECT_EQ(view->changes().bullets().size(), 3U);
    EXPECT_TRUE(view->detailsButton().isVisible());
    EXPECT_FALSE(view->details().isVisible());
    EXPECT_EQ(message(), "");
    EXPECT_THAT(buttons(), ElementsAre("Not now", "Connect Claude Code"));
    EXPECT_EQ(view->buttons()[0]->kind(), Kind::plain);
    EXPECT_EQ(view->buttons()[1]->kind(), Kind::primary);
}

TEST_F(Setup, PetWavesUntilConnected) {
    start();
    show();
    EXPECT_EQ(view->pet().size(), QSize(96, 96));
    Pet pet;
    pet.action = PetAction::waving;
    pet.seed = 168;
    pet.since = loop.now() + -1;
    EXPECT_EQ(view->pet().pet(), pet);
    EXPECT_EQ(view->pet().moment(), loop.now());
    loop.advance(30);
    press(1);
    pet.action = PetAction::yourTurn;
    pet.since = loop.now() + -1;
    EXPECT_EQ(view->pet().pet(), pet);
    view->animate(loop.now() + 2);
    EXPECT_EQ(view->pet().moment(), loop.now() + 2);
}

TEST_F(Setup, ConnectsThenLeadsToThePets) {
    start();
    writeSettings(R"({"model":"x"})");
    show();
    press(1);
    EXPECT_EQ(connection().status(), Status::connected);
    EXPECT_EQ(heading(), "You're connected!");
    EXPECT_FALSE(view->changes().isVisible());
    EXPECT_FALSE(view->detailsButton().isVisible());
    EXPECT_THAT(
        message(), StartsWith("Connected. settings.json was backed up to settings.json.bak-mimkins-")
    );
    EXPECT_THAT(buttons(), ElementsAre("Show my pets"));
    EXPECT_EQ(view->buttons()[0]->kind(), Kind::primary);
    EXPECT_EQ(departures, 0);
    press(0);
    EXPECT_EQ(departures, 1);
}

TEST_F(Setup, NotNowLeavesWithoutATrace) {
    start();
    writeSettings("{}");
    show();
    press(0);
    EXPECT_EQ(departures, 1);
    EXPECT_EQ(readWhole(paths.clientSettings()), "{}");
    EXPECT_FALSE(std::filesystem::exists(paths.hookScript()));
}

TEST_F(Setup, OldConnectionIsUpdated) {
    start();
    connectAsOnceUponATime();
    show();
    EXPECT_EQ(heading(), "Update the Claude Code connection");
    EXPECT_TRUE(view->changes().isVisible());
    EXPECT_THAT(buttons(), ElementsAre("Not now", "Update connection"));
    press(1);
    EXPECT_EQ(connection().status(), Status::connected);
    EXPECT_THAT(readWhole(paths.clientSettings()), Not(HasSubstr("Zorbly")));
    EXPECT_EQ(heading(), "You're connected!");
}

TEST_F(Setup, WithoutTheClientOnlyThePetsRemain) {
    start(Client::missing);
    show();
    EXPECT_EQ(heading(), "Claude Code isn't installed yet");
    EXPECT_FALSE(view->changes().isVisible());
    EXPECT_FALSE(view->detailsButton().isVisible());
    EXPECT_FALSE(view->details().isVisible());
    EXPECT_THAT(buttons(), ElementsAre("Show my pets"));
    press(0);
    EXPECT_EQ(departures, 1);
    EXPECT_FALSE(std::filesystem::exists(paths.clientFolder()));
}

TEST_F(Setup, FailureLeavesTheScreenInPlace) {
    start();
    writeSettings("no json");
    show();
    press(1);
    EXPECT_EQ(heading(), "Welcome to Mimkins");
    EXPECT_THAT(message(), StartsWith("Couldn't connect: "));
    EXPECT_GT(message().size(), std::string("Couldn't connect: ").size());
    EXPECT_THAT(buttons(), ElementsAre("Not now", "Connect Claude Code"));
    EXPECT_EQ(readWhole(paths.clientSettings()), "no json");
}

TEST_F(Setup, SettingsThatAreNoObjectAreLeftAlone) {
    start();
    writeSettings("[]");
    show();
    press(1);
    EXPECT_EQ(message(), "Couldn't connect: settings.json isn't a JSON object, so it was left alone.");
    EXPECT_EQ(readWhole(paths.clientSettings()), "[]");
}

TEST_F(Setup, MessageStaysWhenTheScreenComesBack) {
    start();
    writeSettings("[]");
    show();
    press(1);
    const std::string said = message();
    view->hide();
    writeSettings("{}");
    view->show();
    EXPECT_EQ(message(), said);
    show(); // another view of the same connection
    EXPECT_EQ(message(), said);
}

TEST_F(Setup, LooksAfreshWheneverItAppears) {
    start(Client::missing);
    show();
    view->hide();
    std::filesystem::create_directories(paths.clientFolder());
    EXPECT_EQ(heading(), "Claude Code isn't installed yet");
    view->show();
    EXPECT_EQ(heading(), "Welcome to Mimkins");
}

TEST_F(Setup, DetailsUnfoldAndFold) {
    start();
    show();
    auto& button = view->detailsButton();
    EXPECT_EQ(button.text(), "Exactly what changes");
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(button.text(), "Hide the details");
    EXPECT_TRUE(view->unfolding().isMoving());
    while (view->unfolding().step(0.05)) {
    }
    QCoreApplication::processEvents();
    EXPECT_TRUE(view->details().isVisible());
    EXPECT_EQ(view->details().words().toStdString(), connection().changeSummary());
    EXPECT_GE(view->unfolding().height(), view->details().heightForWidth(view->details().width()));
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(button.text(), "Exactly what changes");
    EXPECT_TRUE(view->details().isVisible()); // on its way
    while (view->unfolding().step(0.05)) {
    }
    EXPECT_FALSE(view->details().isVisible());
}

TEST_F(Setup, DetailsTurnBackHalfWay) {
    start();
    show();
    view->setShowDetails(true, Unfolding::Motion::glide);
    view->unfolding().step(0.2);
    const int half = view->unfolding().heightForWidth(280);
    view->setShowDetails(false, Unfolding::Motion::glide);
    EXPECT_EQ(view->unfolding().heightForWidth(280), half);
    EXPECT_GT(half, 0);
    view->setShowDetails(true, Unfolding::Motion::jump);
    EXPECT_FALSE(view->unfolding().isMoving());
    EXPECT_EQ(view->unfolding().heightForWidth(280), view->details().heightForWidth(280));
}

TEST_F(Setup, DetailsCanBeCopied) {
    start();
    show();
    view->setShowDetails(true, Unfolding::Motion::jump);
    EXPECT_TRUE(view->details().isReadOnly());
    view->details().selectAll();
    EXPECT_EQ(view->details().textCursor().selectedText().toStdString(), connection().changeSummary());
}

TEST_F(Setup, DetailsGoWithTheConnectingState) {
    start();
    show();
    view->setShowDetails(true, Unfolding::Motion::jump);
    press(1);
    EXPECT_FALSE(view->details().isVisible());
    EXPECT_FALSE(view->unfolding().isVisible());
}

TEST_F(Setup, KeyboardReachesEverythingInOrder) {
    start();
    show();
    view->setShowDetails(true, Unfolding::Motion::jump);
    view->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    view->detailsButton().setFocus(Qt::TabFocusReason);
    std::vector<const QWidget*> order;
    for (int step = 0; step < 4; ++step) {
        order.push_back(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_THAT(
        order, ElementsAre(&view->detailsButton(), &view->details(), view->buttons()[0], view->buttons()[1])
    );
}

TEST_F(Setup, FocusMovesOnToTheNextStep) {
    start();
    show();
    view->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    view->buttons()[1]->setFocus(Qt::TabFocusReason);
    QTest::keyClick(view->buttons()[1], Qt::Key_Return);
    ASSERT_THAT(buttons(), ElementsAre("Show my pets"));
    EXPECT_TRUE(view->buttons()[0]->hasFocus());
    QTest::keyClick(view->buttons()[0], Qt::Key_Space);
    EXPECT_EQ(departures, 1);
}

TEST_F(Setup, TellsItselfToThoseWhoListen) {
    start();
    writeSettings("[]");
    show();
    press(1);
    const auto* primary = QAccessible::queryAccessibleInterface(view->buttons()[1]);
    ASSERT_NE(primary, nullptr);
    EXPECT_EQ(primary->role(), QAccessible::Button);
    EXPECT_EQ(primary->text(QAccessible::Name), "Connect Claude Code");
    const auto* details = QAccessible::queryAccessibleInterface(&view->detailsButton());
    EXPECT_EQ(details->role(), QAccessible::Button);
    EXPECT_EQ(details->text(QAccessible::Name), "Exactly what changes");
    for (const QLabel* label : {&view->heading(), &view->text(), &view->message()}) {
        const auto* read = QAccessible::queryAccessibleInterface(const_cast<QLabel*>(label)); // NOLINT
        EXPECT_EQ(read->role(), QAccessible::StaticText);
        EXPECT_EQ(read->text(QAccessible::Name), label->accessibleName());
    }
    EXPECT_EQ(view->accessibleName(), "Setup");
}

/// Nothing that shows is cut off or lies on something else.
void expectEverythingFits(const SetupView& view) {
    const QWidget* canvas = view.widget();
    EXPECT_LE(canvas->minimumSizeHint().width(), view.viewport()->width());
    for (const auto* child : canvas->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        EXPECT_LE(child->minimumSizeHint().width(), view.viewport()->width())
            << child->accessibleName().toStdString() << " " << child->metaObject()->className();
    }
    EXPECT_EQ(canvas->width(), view.viewport()->width());
    for (const auto* label : view.findChildren<QLabel*>()) {
        if (label->isVisible()) {
            EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                << label->accessibleName().toStdString();
        }
    }
    for (const auto* button : view.findChildren<PillButton*>()) {
        if (button->isVisible()) {
            const QRect place(button->mapTo(canvas, QPoint()), button->size());
            EXPECT_TRUE(canvas->rect().contains(place)) << button->text().toStdString();
            EXPECT_GE(button->height(), button->sizeWithin(button->width()).height());
        }
    }
    int bottom = 0;
    for (const auto* child : canvas->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (child->isVisible() && child->height() > 0) {
            EXPECT_GE(child->geometry().top(), bottom);
            bottom = child->geometry().bottom();
        }
    }
}

class SetupLooks : public Setup, public testing::WithParamInterface<double> {};

TEST_P(SetupLooks, FitEveryThemeWidthAndState) {
    start(Client::missing);
    show();
    const auto everyLook = [this] {
        for (const auto& each : PetTheme::all()) {
            theme = each.resolved(ColorScheme::light);
            for (const int width : {280, 320, 380}) {
                SCOPED_TRACE(testing::Message() << each.id << " " << width << " " << heading());
                view->setLook(look(GetParam()));
                view->resize(width, 560);
                QCoreApplication::processEvents();
                expectEverythingFits(*view);
            }
        }
    };
    everyLook(); // without the client
    std::filesystem::create_directories(paths.clientFolder());
    writeSettings("{}");
    connection().refresh();
    view->setShowDetails(true, Unfolding::Motion::jump);
    everyLook(); // to be connected
    press(1);
    everyLook(); // connected, with the long name of the backup
    connectAsOnceUponATime();
    connection().refresh();
    everyLook(); // to be updated
}

INSTANTIATE_TEST_SUITE_P(Fonts, SetupLooks, testing::Values(1.0, 1.5, 2.0));

/// A screen that notes what it is told.
class NotedScreen final : public PanelScreen {
public:
    void setLook(const CardLook& look) override { looks.emplace_back(look.theme->id); }

    void animate(Date now) override { shown = now; }

    std::vector<std::string> looks;
    std::optional<Date> shown;
};

class SetupScreen : public PanelFixture {
protected:
    /// Tells the panel how to make one; `screen` is set when it is made.
    void addScreen(NotedScreen*& screen) {
        panel->addScreen(DrawerMode::setup, [this, &screen](const CardLook& look) {
            ++made;
            screen = new NotedScreen;
            screen->setLook(look);
            return screen;
        });
    }

    int made = 0;
};

TEST_F(SetupScreen, OneThatIsAddedInItsModeShowsAtOnce) {
    start();
    drawer.setMode(DrawerMode::setup);
    EXPECT_TRUE(panel->emptyState().isVisible());
    NotedScreen* screen = nullptr;
    addScreen(screen);
    ASSERT_NE(screen, nullptr);
    EXPECT_TRUE(screen->isVisible());
    drawer.setMode(DrawerMode::pets);
    drawer.setMode(DrawerMode::setup);
    EXPECT_EQ(made, 1);
}

TEST_F(SetupScreen, TakesThePlaceOfTheListInItsMode) {
    report("a", "working");
    start();
    NotedScreen* screen = nullptr;
    addScreen(screen);
    EXPECT_EQ(screen, nullptr); // nobody has looked yet
    EXPECT_TRUE(panel->list().isVisible());
    drawer.setMode(DrawerMode::setup);
    ASSERT_NE(screen, nullptr);
    EXPECT_TRUE(screen->isVisible());
    EXPECT_FALSE(panel->list().isVisible());
    EXPECT_EQ(panel->header().titleLabel().text(), "Setup");
    EXPECT_FALSE(panel->header().summaryLabel().isVisible());
    drawer.setMode(DrawerMode::pets);
    EXPECT_FALSE(screen->isVisible());
    EXPECT_TRUE(panel->list().isVisible());
}

TEST_F(SetupScreen, MovesOnlyWhileSomebodySeesIt) {
    start(); // without sessions
    NotedScreen* screen = nullptr;
    addScreen(screen);
    loop.advance(1);
    EXPECT_EQ(screen, nullptr);
    drawer.setMode(DrawerMode::setup);
    loop.advance(1);
    ASSERT_TRUE(screen->shown);
    drawer.setCovered(true);
    const Date last = *screen->shown;
    loop.advance(1);
    EXPECT_EQ(screen->shown, last);
    drawer.setCovered(false);
    loop.advance(1);
    EXPECT_GT(*screen->shown, last);
}

TEST_F(SetupScreen, FollowsTheTheme) {
    settings.themeId = "night";
    start();
    NotedScreen* screen = nullptr;
    addScreen(screen);
    drawer.setMode(DrawerMode::setup);
    settings.themeId = "paper";
    panel->setSettings(settings);
    EXPECT_THAT(screen->looks, ElementsAre("night", "paper"));
}

TEST_F(SetupScreen, ArrowKeysLeaveHiddenCardsAlone) {
    report("a", "working");
    start();
    panel->addScreen(DrawerMode::setup, [](const CardLook&) { return new NotedScreen; });
    drawer.setMode(DrawerMode::setup);
    QTest::keyClick(panel.get(), Qt::Key_Down);
    EXPECT_FALSE(panel->list().cards().front()->hasFocus());
}

} // namespace

} // namespace mimkins::test
