#include "Interface/PanelFixture.h"
#include "PanelView/CardKeys.h"

#include <QTest>

namespace mimkins::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(CardKeys, LeadToNeighboursAndEnds) {
    EXPECT_EQ(cardAfterKey(Qt::Key_Down, std::nullopt, 3), 0U);
    EXPECT_EQ(cardAfterKey(Qt::Key_Down, 0, 3), 1U);
    EXPECT_EQ(cardAfterKey(Qt::Key_Down, 2, 3), 2U);
    EXPECT_EQ(cardAfterKey(Qt::Key_Up, std::nullopt, 3), 2U);
    EXPECT_EQ(cardAfterKey(Qt::Key_Up, 2, 3), 1U);
    EXPECT_EQ(cardAfterKey(Qt::Key_Up, 0, 3), 0U);
    EXPECT_EQ(cardAfterKey(Qt::Key_Home, 2, 3), 0U);
    EXPECT_EQ(cardAfterKey(Qt::Key_End, 0, 3), 2U);
    EXPECT_EQ(cardAfterKey(Qt::Key_Down, std::nullopt, 0), std::nullopt);
    EXPECT_EQ(cardAfterKey(Qt::Key_A, 0, 3), std::nullopt);
}

class Keyboard : public PanelFixture {
protected:
    void open() {
        for (const char* id : {"a", "b", "c"}) {
            report(
                id, "working",
                std::string(R"(,"transcript":"/home/somebody/t/)") + id + R"(.jsonl","open":")" +
                    "https://example.org/" + id + R"(")"
            );
        }
        subtask("b", "one", "tool_use", 0);
        subtask("b", "two", "end_turn", 60);
        start();
        store->reloadSubtasks();
        panel->onClose = [this] { ++closed; };
        panel->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(panel.get()));
    }

    void
    subtask(const std::string& id, const std::string& task, const std::string& reason, std::int64_t ago) {
        const std::string folder = "/home/somebody/t/" + id + "/subagents/";
        files.write(
            folder + "agent-" + task + ".jsonl",
            R"({"type":"assistant","message":{"stop_reason":")" + reason +
                R"(","content":[{"type":"text","text":"Well."}]}})"
                "\n",
            fileTime(static_cast<std::int64_t>(loop.now().secondsSince1970) - ago)
        );
    }

    CardView& card(std::size_t index) const { return *panel->list().cards().at(index); }

    /// What has the focus is told of the key, as the window does it.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* focused = panel->focusWidget();
        QTest::keyClick(focused != nullptr ? focused : panel.get(), key, modifiers);
    }

    void settle() {
        while (panel->list().step(0.016)) {
        }
    }

    int closed = 0;
};

TEST_F(Keyboard, ArrowsGoOnFromACardsOwnButtons) {
    open();
    card(1).setFocus();
    press(Qt::Key_Tab);
    ASSERT_TRUE(card(1).pill().hasFocus());
    press(Qt::Key_Down);
    EXPECT_TRUE(card(2).hasFocus());
    card(1).pill().setFocus();
    press(Qt::Key_Up);
    EXPECT_TRUE(card(0).hasFocus());
}

TEST_F(Keyboard, TabGoesThroughCardButtonAndSubtasks) {
    open();
    card(1).pill().click();
    settle();
    auto* list = panel->list().subtasks("b");
    ASSERT_NE(list, nullptr);
    card(1).setFocus();
    press(Qt::Key_Tab);
    EXPECT_TRUE(card(1).pill().hasFocus());
    press(Qt::Key_Tab);
    EXPECT_TRUE(list->finishedButton().hasFocus());
    press(Qt::Key_Return);
    EXPECT_TRUE(list->showsFinished());
    press(Qt::Key_Space);
    EXPECT_FALSE(list->showsFinished());
    press(Qt::Key_Down);
    EXPECT_TRUE(card(2).hasFocus());
    list->finishedButton().setFocus();
    press(Qt::Key_Up);
    EXPECT_TRUE(card(0).hasFocus());
}

TEST_F(Keyboard, HomeAndEndLeadToTheEnds) {
    open();
    press(Qt::Key_Down);
    press(Qt::Key_End);
    EXPECT_TRUE(card(2).hasFocus());
    press(Qt::Key_Home);
    EXPECT_TRUE(card(0).hasFocus());
}

TEST_F(Keyboard, ReturnEnterAndSpaceOpenTheSession) {
    open();
    card(1).setFocus();
    press(Qt::Key_Return);
    press(Qt::Key_Enter);
    press(Qt::Key_Space);
    const std::string link = "https://example.org/b";
    EXPECT_THAT(links.opened, ElementsAre(link, link, link));
    EXPECT_EQ(closed, 0);
}

TEST_F(Keyboard, MenuKeysShowTheCardsMenu) {
    open();
    const auto opensMenu = [this](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        press(key, modifiers);
        const QPointer<QMenu> menu = panel->list().menu();
        const bool shown = menu != nullptr && menu->isVisible();
        if (menu != nullptr) {
            menu->close();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return shown;
    };
    card(1).setFocus();
    EXPECT_TRUE(opensMenu(Qt::Key_Menu, Qt::NoModifier));
    EXPECT_TRUE(opensMenu(Qt::Key_F10, Qt::ShiftModifier));
    EXPECT_FALSE(opensMenu(Qt::Key_F10, Qt::NoModifier));
    card(1).pill().setFocus();
    EXPECT_TRUE(opensMenu(Qt::Key_Menu, Qt::NoModifier));
    EXPECT_THAT(links.opened, IsEmpty());
}

TEST_F(Keyboard, EscapeShutsTheMenuAndThenTheDrawer) {
    open();
    card(0).setFocus();
    press(Qt::Key_Menu);
    const QPointer<QMenu> menu = panel->list().menu();
    ASSERT_NE(menu, nullptr);
    QTest::keyClick(menu, Qt::Key_Escape);
    EXPECT_TRUE(menu == nullptr || !menu->isVisible());
    EXPECT_EQ(closed, 0);
    press(Qt::Key_Escape);
    EXPECT_EQ(closed, 1);
    card(1).pill().setFocus();
    press(Qt::Key_Escape);
    EXPECT_EQ(closed, 2);
    panel->header().moon().setFocus();
    press(Qt::Key_Escape);
    EXPECT_EQ(closed, 3);
}

TEST_F(Keyboard, HeaderIsPressedByReturnAndLeftByTheArrows) {
    open();
    panel->header().moon().setFocus();
    press(Qt::Key_Down);
    EXPECT_TRUE(card(0).hasFocus());
    panel->header().moon().setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(drawer.mode(), DrawerMode::sweep);
    press(Qt::Key_Enter);
    EXPECT_EQ(drawer.mode(), DrawerMode::pets);
    press(Qt::Key_Space);
    EXPECT_EQ(drawer.mode(), DrawerMode::sweep);
}

TEST_F(Keyboard, ArrowsGoThroughTheWrapUp) {
    open();
    report("a", "waiting", R"(,"tool":"Bash","open":"https://example.org/a")");
    report("b", "waiting", R"(,"tool":"Bash","open":"https://example.org/b")");
    watcher.change(paths.sessions());
    loop.advance(0.2);
    panel->header().moon().setFocus();
    press(Qt::Key_Return);
    queue.run();
    loop.advance(0.1);
    const auto& rows = panel->sweep().rows();
    ASSERT_EQ(rows.size(), 2U);
    press(Qt::Key_Down);
    EXPECT_TRUE(rows[0]->hasFocus());
    press(Qt::Key_Down);
    EXPECT_TRUE(rows[1]->hasFocus());
    press(Qt::Key_Up);
    EXPECT_TRUE(rows[0]->hasFocus());
    press(Qt::Key_Return);
    EXPECT_EQ(links.opened.size(), 1U);
    press(Qt::Key_Escape);
    EXPECT_EQ(closed, 1);
}

TEST_F(Keyboard, FocusedButtonIsScrolledTo) {
    open();
    card(1).pill().click();
    settle();
    panel->resize(320, 160);
    auto& button = panel->list().subtasks("b")->finishedButton();
    EXPECT_TRUE(button.visibleRegion().isEmpty());
    button.setFocus();
    EXPECT_FALSE(button.visibleRegion().isEmpty());
    card(0).setFocus();
    EXPECT_FALSE(card(0).visibleRegion().isEmpty());
}

} // namespace

} // namespace mimkins::test
