#include "Interface/PanelFixture.h"
#include "Presentation/Accent.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <numbers>

namespace mimkins::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Card : public PanelFixture {
protected:
    CardView& card(std::size_t index = 0) const { return *panel->list().cards().at(index); }

    void settle() {
        while (panel->list().step(0.016)) {
        }
    }

    /// Writes the transcript of a subagent that has just begun.
    void delegate(const std::string& id, const std::string& task, const std::string& description) {
        const std::string folder = "/home/somebody/t/" + id + "/subagents/";
        files.write(folder + "agent-" + task + ".meta.json", R"({"description":")" + description + R"("})");
        files.write(
            folder + "agent-" + task + ".jsonl",
            R"({"type":"assistant","message":{"content":[{"type":"tool_use","id":"t1","name":"Read",)"
            R"("input":{"file_path":"/a/b.c"}}]}})"
            "\n",
            fileTime(static_cast<std::int64_t>(loop.now().secondsSince1970))
        );
    }

    void startWithSubtask() {
        report("a", "working", R"(,"transcript":"/home/somebody/t/a.jsonl")");
        delegate("a", "one", "Look it up");
        start();
        store->reloadSubtasks();
    }

    static QStringList titles(const QMenu& menu) {
        QStringList result;
        for (const auto* action : menu.actions()) {
            result.append(action->isSeparator() ? "-" : action->text());
        }
        return result;
    }
};

TEST_F(Card, PressDipsAndOpens) {
    report("a", "done", R"(,"open":"https://example.org/a")");
    start();
    QTest::mouseClick(&card(), Qt::LeftButton);
    EXPECT_THAT(links.opened, ElementsAre("https://example.org/a"));
    EXPECT_TRUE(panel->list().isMoving());
    panel->list().step(0.08);
    EXPECT_DOUBLE_EQ(card().scale(), 0.97);
    settle();
    EXPECT_EQ(card().scale(), 1);
}

TEST_F(Card, WithoutALinkAPressOnlyDips) {
    report("a", "done");
    start();
    QTest::mouseClick(&card(), Qt::LeftButton);
    panel->list().step(0.08);
    EXPECT_DOUBLE_EQ(card().scale(), 0.97);
    EXPECT_THAT(links.opened, IsEmpty());
    EXPECT_EQ(card().toolTipAt(QPointF(card().width() - 20.0, card().height() - 16.0)), "");
}

TEST_F(Card, HighlightGrowsTheCard) {
    report("a", "done");
    report("b", "done");
    start();
    drawer.setHighlightedId("b");
    EXPECT_TRUE(panel->list().isMoving());
    settle();
    for (const auto* shown : panel->list().cards()) {
        EXPECT_EQ(shown->scale(), shown->row().id == "b" ? 1.03 : 1) << shown->row().id;
    }
    drawer.setHighlightedId(std::nullopt);
    settle();
    EXPECT_EQ(card(0).scale(), 1);
    EXPECT_EQ(card(1).scale(), 1);
}

TEST_F(Card, HighlightInAShutDrawerStandsAtOnce) {
    report("a", "done");
    start();
    drawer.setOpen(false);
    drawer.setHighlightedId("a");
    EXPECT_EQ(card().scale(), 1.03);
    EXPECT_FALSE(panel->list().isMoving());
}

TEST_F(Card, MenuOffersTheSessionItsFolderAndPrompts) {
    report("a", "done", R"(,"open":"https://example.org/a","cwd":"/home/somebody/shop")");
    settings.quickPrompts = quickPrompts("Mine & yours");
    start();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(40, 40), card().mapToGlobal(QPoint(40, 40)));
    QCoreApplication::sendEvent(&card(), &event);
    const QPointer<QMenu> menu = panel->list().menu();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(
        titles(*menu),
        (QStringList{
            "Open Session", "-", "New Session Here", "New Session With…", "-", "Show Folder in Finder"})
    );
    const auto actions = menu->actions();
    EXPECT_TRUE(actions[0]->isEnabled());
    actions[0]->trigger();
    actions[2]->trigger();
    actions[3]->menu()->actions().last()->trigger();
    actions[5]->trigger();
    ASSERT_EQ(links.opened.size(), 4U);
    EXPECT_EQ(links.opened[0], "https://example.org/a");
    EXPECT_EQ(links.opened[1], "claude://code/new?folder=/home/somebody/shop");
    EXPECT_EQ(links.opened[2], "claude://code/new?q=Mine%20%26%20yours&folder=/home/somebody/shop");
    EXPECT_EQ(links.opened[3], "folder /home/somebody/shop");
    menu->close();
}

TEST_F(Card, MenuOfASessionThatLeadsNowhere) {
    report("a", "done");
    settings.quickPrompts = quickPrompts("");
    start();
    QTest::keyClick(&card(), Qt::Key_Menu);
    const QPointer<QMenu> menu = panel->list().menu();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(titles(*menu), (QStringList{"Open Session", "-", "New Session Here", "New Session With…"}));
    EXPECT_FALSE(menu->actions()[0]->isEnabled());
    EXPECT_EQ(menu->actions()[3]->menu()->actions().size(), 4);
    menu->actions()[2]->trigger();
    EXPECT_THAT(links.opened, ElementsAre("claude://code/new"));
    QTest::keyClick(&card(), Qt::Key_Menu); // told again, it isn't opened twice
    EXPECT_EQ(panel->list().menu(), menu);
    menu->close();
}

TEST_F(Card, PillOpensAndShutsTheList) {
    startWithSubtask();
    ASSERT_TRUE(card().row().pill);
    EXPECT_TRUE(card().pill().isVisible());
    EXPECT_EQ(card().pill().toolTip(), "Show subtasks");
    EXPECT_EQ(card().row().crew->heads.size(), 1U);
    EXPECT_EQ(panel->list().subtasks("a"), nullptr);
    settle();
    const double shut = panel->list().flow().find("a")->targetHeight();

    QTest::mouseClick(&card().pill(), Qt::LeftButton);
    EXPECT_EQ(store->expandedId(), "a");
    EXPECT_THAT(links.opened, IsEmpty());
    const auto* list = panel->list().subtasks("a");
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(list->rows().size(), 1U);
    EXPECT_EQ(list->rows()[0]->row().description, "Look it up");
    EXPECT_GT(panel->list().flow().find("a")->targetHeight(), shut + 40);
    EXPECT_LT(list->height(), 20); // on its way
    settle();
    EXPECT_EQ(list->height(), list->heightFor(list->width()));
    EXPECT_EQ(card().pill().toolTip(), "Hide subtasks");

    QTest::mouseClick(&card().pill(), Qt::LeftButton);
    EXPECT_EQ(panel->list().flow().find("a")->targetHeight(), shut);
    EXPECT_NE(panel->list().subtasks("a"), nullptr); // until it has shut
    settle();
    EXPECT_EQ(panel->list().subtasks("a"), nullptr);
}

TEST_F(Card, CrewSettingTakesTheHeadsAwayAndLeavesThePill) {
    startWithSubtask();
    settings.cards.crewHeads = false;
    panel->setSettings(settings);
    EXPECT_FALSE(card().row().crew);
    EXPECT_TRUE(card().row().pill);
}

TEST_F(Card, PillIsReachedAfterItsCardAndTakesReturn) {
    startWithSubtask();
    panel->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(panel.get()));
    card().setFocus();
    QTest::keyClick(&card(), Qt::Key_Tab);
    EXPECT_TRUE(card().pill().hasFocus());
    QTest::keyClick(&card().pill(), Qt::Key_Return);
    EXPECT_EQ(store->expandedId(), "a");
    const auto* accessible = QAccessible::queryAccessibleInterface(&card().pill());
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), "Hide subtasks");
}

TEST_F(Card, GlowOfAWaitingCardMovesTenTimesASecond) {
    report("a", "waiting", R"(,"tool":"Bash")");
    start();
    QImage before = card().grab().toImage();
    int changes = 0;
    const QPoint edge(card().width() / 2, CardView::shadowRoom + 1);
    for (int step = 0; step < 240; ++step) {
        loop.advance(1.0 / 240);
        const QImage now = card().grab().toImage();
        changes += now.pixel(edge) != before.pixel(edge) ? 1 : 0;
        before = now;
    }
    EXPECT_GE(changes, 8);
    EXPECT_LE(changes, 11);
}

TEST_F(Card, MarkOfTheNextCardLiesOverItsGlow) {
    report("a", "waiting", R"(,"tool":"Bash")");
    start();
    drawer.setHighlightedId("a");
    settle();
    const QImage picture = card().grab().toImage();
    const QRectF shown = QTransform()
                             .translate(card().width() / 2.0, card().height() / 2.0)
                             .scale(1.03, 1.03)
                             .translate(-card().width() / 2.0, -card().height() / 2.0)
                             .mapRect(QRectF(card().rect()).adjusted(10, 10, -10, -10));
    const QColor edge = picture.pixelColor(card().width() / 3, static_cast<int>(shown.bottom()) - 2);
    const Color& accented = accent(PetTheme::nightSky()); // green and blue rather than the yellow of the glow
    EXPECT_GT(accented.blue, accented.red);
    EXPECT_GT(edge.blueF(), edge.redF());
}

TEST_F(Card, WaitingSwapsBorderAndShadowForTheGlowAtOnce) {
    report("a", "working");
    start();
    const QPoint edge(card().width() / 2, CardView::shadowRoom + 1);
    const QRgb before = card().grab().toImage().pixel(edge);
    report("a", "waiting", R"(,"tool":"Bash")");
    watcher.change(paths.sessions());
    loop.advance(0.2);
    EXPECT_TRUE(card().row().waiting);
    EXPECT_NE(card().grab().toImage().pixel(edge), before);
}

TEST_F(Card, ToolTipsSayWhatIsUnderThePointer) {
    report("a", "done", R"(,"open":"https://example.org/a","agent":"codex")");
    start();
    const auto text = card().text();
    const auto* agent = text.find(CardText::Badge::agent);
    ASSERT_NE(agent, nullptr);
    QStringList seen;
    for (int x = 0; x < card().width(); x += 2) {
        for (int y = 0; y < card().height(); y += 2) {
            const QString words = card().toolTipAt(QPointF(x, y));
            if (!words.isEmpty() && !seen.contains(words)) {
                seen.append(words);
            }
        }
    }
    seen.sort();
    EXPECT_EQ(
        seen, (QStringList{"Connected via mimkin", "Open this session · right-click for more", "shop"})
    );
}

TEST_F(Card, FinishedSubtasksUnfoldByTheirSpring) {
    startWithSubtask();
    const std::string folder = "/home/somebody/t/a/subagents/";
    files.write(
        folder + "agent-old.jsonl",
        R"({"type":"assistant","message":{"stop_reason":"end_turn","content":[{"type":"text","text":"So."}]}})"
        "\n",
        fileTime(static_cast<std::int64_t>(loop.now().secondsSince1970) - 60)
    );
    store->toggleSubtasks("a");
    settle();
    auto* list = panel->list().subtasks("a");
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(list->finishedButton().text(), "1 finished");
    const auto height = [this] { return panel->list().flow().find("a")->height(); };
    const double shut = height();
    list->finishedButton().click();
    const double open = panel->list().flow().find("a")->targetHeight();
    EXPECT_GT(open, shut + 40);
    EXPECT_EQ(height(), shut); // nothing jumps
    ASSERT_TRUE(panel->list().isMoving());
    // Critically damped, response 0.35: after a time t there are still (1 + wt) e^-wt of the way to go.
    panel->list().step(0.1);
    const double w = 2 * std::numbers::pi / 0.35;
    const double left = (1 + w * 0.1) * std::exp(-w * 0.1);
    EXPECT_NEAR(height(), open - (open - shut) * left, 0.01);
    settle();
    EXPECT_EQ(list->height(), static_cast<int>(list->heightFor(list->width())));
    list->finishedButton().click();
    EXPECT_EQ(list->rows().size(), 2U);
    settle();
    EXPECT_EQ(list->rows().size(), 1U);
    EXPECT_EQ(height(), shut);
}

TEST_F(Card, FinishedSubtasksOfACoveredDrawerShowAtOnce) {
    startWithSubtask();
    const std::string folder = "/home/somebody/t/a/subagents/";
    files.write(
        folder + "agent-old.jsonl",
        R"({"type":"assistant","message":{"stop_reason":"end_turn","content":[{"type":"text","text":"So."}]}})"
        "\n",
        fileTime(static_cast<std::int64_t>(loop.now().secondsSince1970) - 60)
    );
    store->toggleSubtasks("a");
    drawer.setCovered(true);
    auto* list = panel->list().subtasks("a");
    const int shut = list->height();
    list->finishedButton().click();
    EXPECT_EQ(list->height(), static_cast<int>(list->heightFor(list->width())));
    EXPECT_EQ(list->rows().size(), 2U);
    EXPECT_EQ(list->rows()[1]->opacity(), 1);
    list->finishedButton().click();
    EXPECT_EQ(list->rows().size(), 1U);
    EXPECT_EQ(list->height(), shut);
}

SubtaskRows rowsOf(int running, int finished) {
    std::vector<Subtask> tasks;
    for (int index = 0; index < running + finished; ++index) {
        Subtask task;
        task.id = std::to_string(index);
        task.description = "Look";
        task.running = index < running;
        tasks.push_back(task);
    }
    return subtaskRows(tasks, std::nullopt);
}

CardLook nightLook() {
    return {&PetTheme::nightSky(), Typography(FontDesign::standard, 1), 62, {}};
}

TEST(SubtaskListView, ShowsSixAndCountsTheRest) {
    SubtaskListView list(nightLook());
    list.setRows(rowsOf(6, 0), Date{0});
    EXPECT_EQ(list.rows().size(), 6U);
    EXPECT_FALSE(list.moreLine().isVisibleTo(&list));
    EXPECT_FALSE(list.finishedButton().isVisibleTo(&list));
    list.setRows(rowsOf(7, 0), Date{0});
    EXPECT_EQ(list.rows().size(), 6U);
    EXPECT_TRUE(list.moreLine().isVisibleTo(&list));
    EXPECT_EQ(list.moreLine().text(), "+1 more running");
    EXPECT_EQ(list.moreLine().symbol(), Symbol::ellipsisCircle);
}

TEST(SubtaskListView, FinishedOnesStandBehindAButton) {
    SubtaskListView list(nightLook());
    int changes = 0;
    list.onHeightChange = [&changes] { ++changes; };
    list.setRows(rowsOf(0, 8), Date{0});
    EXPECT_TRUE(list.rows().empty());
    EXPECT_EQ(list.finishedButton().text(), "8 finished");
    EXPECT_EQ(list.finishedButton().symbol(), Symbol::checkmarkCircle);
    const double shut = list.heightFor(300);
    list.finishedButton().click();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(list.rows().size(), 6U);
    EXPECT_EQ(list.finishedButton().symbol(), Symbol::chevronDown);
    EXPECT_GT(list.heightFor(300), shut + 6 * 56);
    list.finishedButton().click();
    EXPECT_EQ(list.heightFor(300), shut);
}

TEST(SubtaskListView, FinishedOnesFadeWithTheRoomTheyHave) {
    SubtaskListView list(nightLook());
    list.setRows(rowsOf(1, 2), Date{0});
    list.show(); // only what is shown is told of its size at once
    const auto fit = [&list](double share, double shut, double open) {
        list.resize(300, static_cast<int>(std::lround(shut + (open - shut) * share)));
    };
    const double shut = list.heightFor(300);
    fit(0, shut, shut);
    list.onHeightChange = [] {};
    list.finishedButton().click();
    const double open = list.heightFor(300);
    ASSERT_EQ(list.rows().size(), 3U);
    EXPECT_EQ(list.rows()[1]->opacity(), 0);
    fit(0.5, shut, open);
    EXPECT_NEAR(list.rows()[1]->opacity(), 0.5, 0.02);
    EXPECT_EQ(list.rows()[0]->opacity(), 1);
    fit(1, shut, open);
    EXPECT_EQ(list.rows()[2]->opacity(), 1);

    list.finishedButton().click();
    EXPECT_EQ(list.heightFor(300), shut); // where it wants to go
    EXPECT_EQ(list.rows().size(), 3U);    // what goes can still be seen
    fit(0.25, shut, open);
    EXPECT_NEAR(list.rows()[2]->opacity(), 0.25, 0.02);
    fit(0, shut, open);
    EXPECT_EQ(list.rows().size(), 1U);
}

TEST(SubtaskListView, ItemsStandBelowOneAnother) {
    SubtaskListView list(nightLook());
    list.setRows(rowsOf(7, 3), Date{0});
    list.finishedButton().click();
    list.resize(300, static_cast<int>(list.heightFor(300)));
    int bottom = -1;
    std::vector<QWidget*> items(list.rows().begin(), list.rows().begin() + 6);
    items.push_back(&list.moreLine());
    items.push_back(&list.finishedButton());
    items.insert(items.end(), list.rows().begin() + 6, list.rows().end());
    for (const auto* item : items) {
        EXPECT_GT(item->geometry().top(), bottom);
        EXPECT_EQ(item->geometry().left(), 24);
        bottom = item->geometry().bottom();
    }
    EXPECT_LT(bottom, list.height());
    EXPECT_GE(bottom, list.height() - 2);
}

TEST(SubtaskListView, EmptyListTakesRoomForItsWords) {
    SubtaskListView list(nightLook());
    list.setRows(rowsOf(0, 0), Date{0});
    EXPECT_GT(list.heightFor(150), list.heightFor(600));
    EXPECT_GT(list.heightFor(600), 12);
}

} // namespace

} // namespace mimkins::test
