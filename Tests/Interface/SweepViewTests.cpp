#include "Interface/PanelFixture.h"
#include "PanelView/SweepView.h"

#include <QTest>

namespace mimkins::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Date now{1'795'246'096.0};

Session waiting(const std::string& title) {
    Session session;
    session.id = "w";
    session.mood = Mood::question;
    session.title = title;
    session.since = now + -65;
    session.openLink = "https://example.org/w";
    return session;
}

SweepReport::RepoLine repository() {
    return {"/work/shop", {3, 1, "main", {}}, "Basket", "local-1"};
}

SweepReport::ScheduledLine recurring() {
    return {{"cron-1", std::nullopt, true, ""}, "Letters", std::nullopt};
}

class SweepViewTest : public testing::Test {
protected:
    SweepViewTest() {
        view.onCheck = [this] { ++checks; };
        view.onOpen = [this](const std::string& link) { opened.push_back(link); };
        view.resize(320, 600);
        view.show();
    }

    void present(bool sweeping = false) {
        view.present(report, sweeping, now);
        QCoreApplication::processEvents();
    }

    std::vector<std::string> heads() const {
        std::vector<std::string> words;
        for (const auto* head : view.heads()) {
            words.push_back(head->words().toStdString());
        }
        return words;
    }

    SweepReport report{now, {}, {}, {}, {}};
    PetTheme theme = PetTheme::nightSky().resolved(ColorScheme::dark);
    CardLook look{&theme, Typography(theme.font), 62, {}};
    SweepView view{look};
    int checks = 0;
    std::vector<std::string> opened;
};

TEST_F(SweepViewTest, WithoutAReportSaysThatItLooks) {
    ASSERT_NE(view.checking(), nullptr);
    EXPECT_EQ(view.checking()->text(), "Checking your sessions…");
    EXPECT_EQ(view.button(), nullptr);
    view.present(std::nullopt, true, now);
    ASSERT_NE(view.checking(), nullptr);
}

TEST_F(SweepViewTest, NothingLeftIsAllClear) {
    present();
    ASSERT_NE(view.allClear(), nullptr);
    EXPECT_EQ(view.allClear()->words().title, "All clear. Good night! 🌙");
    EXPECT_EQ(view.allClear()->pet().pet().seed, 168U);
    EXPECT_EQ(view.allClear()->pet().pet().action, PetAction::resting);
    EXPECT_THAT(heads(), IsEmpty());
    EXPECT_TRUE(view.checked()->text().startsWith("Checked "));
    EXPECT_EQ(view.button()->text(), "Check again");
}

TEST_F(SweepViewTest, ScheduledWorkAloneIsAllClear) {
    report.scheduled = {recurring()};
    present();
    ASSERT_NE(view.allClear(), nullptr);
    EXPECT_EQ(view.allClear()->words().title, "All clear. The night shift has it from here 🌙");
    EXPECT_THAT(heads(), ElementsAre("Scheduled 1"));
    EXPECT_LT(view.allClear()->geometry().bottom(), view.heads().front()->geometry().top());
}

TEST_F(SweepViewTest, ShowsTheFourSectionsInOrder) {
    report.waiting = {waiting("First"), waiting("Second")};
    report.repos = {repository()};
    report.scheduled = {recurring()};
    report.running = {{"Archive", std::nullopt, 2}};
    present();
    EXPECT_EQ(view.allClear(), nullptr);
    EXPECT_THAT(
        heads(), ElementsAre("Waiting on you 2", "Uncommitted changes 1", "Scheduled 1", "Still running 1")
    );
    ASSERT_EQ(view.rows().size(), 5U);
    EXPECT_EQ(view.rows()[0]->accessibleName(), "First");
    EXPECT_EQ(view.rows()[0]->accessibleDescription(), "Has a question · 1m");
    EXPECT_EQ(view.rows()[2]->accessibleName(), "shop");
    EXPECT_EQ(view.rows()[2]->accessibleDescription(), "+3 −1 on main · Basket");
    EXPECT_EQ(view.rows()[3]->accessibleName(), "Recurring");
    EXPECT_EQ(view.rows()[3]->accessibleDescription(), "Follow-up · Letters");
    EXPECT_EQ(view.rows()[4]->accessibleDescription(), "2 background commands");
    for (const auto* row : view.rows()) {
        EXPECT_EQ(row->toolTip(), "Open this session");
        EXPECT_GE(row->height(), row->heightForWidth(row->width()));
    }
}

TEST_F(SweepViewTest, OneRepositoryIsNotAllClear) {
    report.repos = {repository()};
    present();
    EXPECT_EQ(view.allClear(), nullptr);
    EXPECT_THAT(heads(), ElementsAre("Uncommitted changes 1"));
}

TEST_F(SweepViewTest, PressOpensTheSession) {
    report.waiting = {waiting("First")};
    report.repos = {repository()};
    report.scheduled = {recurring()};
    present();
    QTest::mouseClick(view.rows()[0], Qt::LeftButton);
    QTest::keyClick(view.rows()[1], Qt::Key_Return);
    EXPECT_THAT(opened, ElementsAre("https://example.org/w", "claude://code/continue?session=local-1"));
    QTest::mouseClick(view.rows()[2], Qt::LeftButton); // without a link
    EXPECT_EQ(opened.size(), 2U);
}

TEST_F(SweepViewTest, ButtonAsksForAnotherLookUnlessOneIsUnderWay) {
    present();
    QTest::mouseClick(view.button(), Qt::LeftButton);
    EXPECT_EQ(checks, 1);
    present(true);
    EXPECT_EQ(view.button()->text(), "Checking…");
    QTest::mouseClick(view.button(), Qt::LeftButton);
    EXPECT_EQ(checks, 1);
}

TEST_F(SweepViewTest, RowsOfTheSameReportStayWhileTimeGoesOn) {
    report.waiting = {waiting("First")};
    present();
    const auto* row = view.rows().front();
    view.present(report, false, now + 60);
    EXPECT_EQ(view.rows().front(), row);
    EXPECT_EQ(row->accessibleDescription(), "Has a question · 2m");
    report.waiting.clear();
    present();
    EXPECT_THAT(view.rows(), IsEmpty());
    EXPECT_NE(view.allClear(), nullptr);
}

TEST_F(SweepViewTest, LongWordsTakeTwoLinesAtMost) {
    report.waiting = {waiting("A title")};
    present();
    const int oneLine = view.rows().front()->height();
    report.waiting = {waiting("A title that goes on for so long that it needs a second line in the drawer")};
    present();
    const int twoLines = view.rows().front()->height();
    EXPECT_GT(twoLines, oneLine);
    report.waiting.front().title = *report.waiting.front().title + *report.waiting.front().title;
    present();
    EXPECT_EQ(view.rows().front()->height(), twoLines);
}

class SweepScreen : public PanelFixture {};

TEST_F(SweepScreen, LooksWhenItAppearsAndAgainWhenAsked) {
    report("a", "waiting", R"(,"tool":"Bash","title":"First")");
    start();
    EXPECT_FALSE(store->sweeping());
    drawer.setMode(DrawerMode::sweep);
    EXPECT_TRUE(store->sweeping());
    EXPECT_TRUE(panel->sweep().isVisible());
    EXPECT_FALSE(panel->list().isVisible());
    EXPECT_NE(panel->sweep().checking(), nullptr);
    queue.run();
    loop.drain();
    EXPECT_FALSE(store->sweeping());
    EXPECT_EQ(panel->sweep().checking(), nullptr);
    ASSERT_EQ(panel->sweep().rows().size(), 1U);
    EXPECT_TRUE(panel->sweep().button()->isEnabled());
    panel->sweep().button()->click();
    EXPECT_TRUE(store->sweeping());
    EXPECT_EQ(panel->sweep().button()->text(), "Checking…");
    EXPECT_FALSE(panel->sweep().button()->isEnabled());
}

TEST_F(SweepScreen, ReturnShowsTheFormerReportUntilTheNext) {
    start();
    drawer.setMode(DrawerMode::sweep);
    queue.run();
    loop.drain();
    drawer.setMode(DrawerMode::pets);
    EXPECT_FALSE(panel->sweep().isVisible());
    drawer.setMode(DrawerMode::sweep);
    EXPECT_NE(panel->sweep().allClear(), nullptr);
    EXPECT_FALSE(panel->sweep().button()->isEnabled());
}

TEST_F(SweepScreen, PetOfTheAllClearMovesWhileItIsSeen) {
    start();
    drawer.setMode(DrawerMode::sweep);
    queue.run();
    loop.drain();
    loop.advance(0.1);
    const auto& pet = panel->sweep().allClear()->pet();
    const Date before = pet.moment();
    loop.advance(0.1);
    EXPECT_GT(pet.moment(), before);
    drawer.setCovered(true);
    const Date covered = pet.moment();
    loop.advance(1);
    EXPECT_EQ(pet.moment(), covered);
}

TEST_F(SweepScreen, ScreensFadeIntoEachOther) {
    start();
    drawer.setMode(DrawerMode::sweep);
    EXPECT_TRUE(panel->screenFade().isVisible());
    drawer.setOpen(false);
    drawer.setMode(DrawerMode::pets);
    EXPECT_FALSE(panel->sweep().isVisible());
}

} // namespace

} // namespace mimkins::test
