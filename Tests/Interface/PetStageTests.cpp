#include "Interface/PanelFixture.h"
#include "PanelView/PetStage.h"

#include <QScrollBar>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace mimkins::test {

namespace {

/// How much the colours of two pictures of one size differ at the most, of 255.
int difference(const QImage& left, const QImage& right) {
    int most = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x) {
            const QRgb a = left.pixel(x, y);
            const QRgb b = right.pixel(x, y);
            const auto apart = [](int one, int other) { return std::abs(one - other); };
            most = std::max(
                {most, apart(qRed(a), qRed(b)), apart(qGreen(a), qGreen(b)), apart(qBlue(a), qBlue(b)),
                 apart(qAlpha(a), qAlpha(b))}
            );
        }
    }
    return most;
}

class PetOnStage : public PanelFixture {
protected:
    CardView& card(std::size_t index = 0) const { return *panel->list().cards().at(index); }

    static PetStage& stage(const CardView& card) {
        PetStage* found = nullptr;
        for (auto* child : card.children()) {
            found = found != nullptr ? found : dynamic_cast<PetStage*>(child);
        }
        return *found;
    }

    void startIn(const std::string& theme) {
        settings.themeId = theme;
        start();
    }

    void settle() const {
        while (panel->list().step(0.016)) {
        }
    }

    QImage picture() const { return panel->grab().toImage(); }

    /// The drawer's picture with the pets drawn as a part of their cards, all of it afresh.
    QImage pictureWithoutStages() const {
        for (const auto* shown : panel->list().cards()) {
            stage(*shown).hide();
        }
        QImage result = picture();
        for (auto* shown : panel->list().cards()) {
            QEvent event(QEvent::HoverLeave);
            QCoreApplication::sendEvent(shown, &event); // draws its ground afresh
            stage(*shown).show();
        }
        return result;
    }

    void expectSamePicture(std::string_view when) const {
        const QImage shown = picture();
        const QImage plain = pictureWithoutStages();
        ASSERT_EQ(shown.size(), plain.size());
        // What is translucent in a pet is rounded once on a stage and twice else.
        EXPECT_LE(difference(shown, plain), 4) << when;
    }
};

TEST_F(PetOnStage, LooksLikeThePetOfTheCardInEachTheme) {
    report("a", "working");
    report("b", "done");
    int still = 0;
    for (const auto& theme : PetTheme::all()) {
        startIn(std::string(theme.id));
        loop.advance(0.5);
        const bool moves = theme.particles != Particles::none;
        EXPECT_EQ(stage(card()).isHidden(), moves) << theme.id;
        if (!moves) {
            expectSamePicture(theme.id);
            ++still;
        }
    }
    EXPECT_GE(still, 4);
}

TEST_F(PetOnStage, FollowsItsGround) {
    report("a", "working");
    report("b", "done");
    startIn("midnight");
    picture();

    report("a", "done");
    store->reloadRecords();
    settle();
    EXPECT_FALSE(stage(card()).isHidden());
    expectSamePicture("another mood");

    settings.themeId = "paper";
    drawer.setOpen(false); // no fade from the one to the other
    panel->setSettings(settings);
    drawer.setOpen(true);
    expectSamePicture("another theme");

    panel->resize(360, 500);
    expectSamePicture("another size");

    QEvent enter(QEvent::HoverEnter);
    card().setAttribute(Qt::WA_UnderMouse);
    QCoreApplication::sendEvent(&card(), &enter);
    const QImage hovering = picture();
    card().setAttribute(Qt::WA_UnderMouse, false);
    QEvent leave(QEvent::HoverLeave);
    QCoreApplication::sendEvent(&card(), &leave);
    const QPoint corner = stage(card()).mapTo(panel.get(), QPoint(1, 1));
    EXPECT_NE(hovering.pixel(corner), picture().pixel(corner));
    expectSamePicture("after hovering");
}

TEST_F(PetOnStage, FollowsAScrolledList) {
    for (const char* id : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l"}) {
        report(id, "working");
    }
    startIn("terminal");
    picture();
    panel->list().verticalScrollBar()->setValue(75);
    EXPECT_GT(panel->list().verticalScrollBar()->value(), 0);
    ASSERT_FALSE(stage(card()).isHidden());
    expectSamePicture("scrolled");
}

TEST_F(PetOnStage, MovesWithTime) {
    report("a", "working");
    startIn("midnight");
    const QImage before = picture();
    ASSERT_FALSE(stage(card()).isHidden());
    loop.advance(0.4);
    EXPECT_NE(picture(), before);
}

TEST_F(PetOnStage, LeavesTheCardWhatLiesOverThePet) {
    report("a", "waiting");
    report("b", "working");
    report("c", "working");
    startIn("midnight");
    drawer.setHighlightedId("c");
    settle();
    for (const auto* shown : panel->list().cards()) {
        EXPECT_EQ(stage(*shown).isHidden(), shown->row().id != "b") << shown->row().id;
    }
    drawer.setHighlightedId(std::nullopt);
    settle();
    for (const auto* shown : panel->list().cards()) {
        EXPECT_EQ(stage(*shown).isHidden(), shown->row().id == "a") << shown->row().id;
    }
}

TEST_F(PetOnStage, LetsClicksThrough) {
    report("a", "done", R"(,"open":"https://example.org/a")");
    startIn("midnight");
    ASSERT_FALSE(stage(card()).isHidden());
    const QPoint middle = stage(card()).geometry().center();
    EXPECT_EQ(panel->childAt(card().mapTo(panel.get(), middle)), &card());
}

TEST_F(PetOnStage, TimeIsDrawnAsWithTheWholeCard) {
    for (const char* theme : {"midnight", "paper", "terminal"}) {
        report("a", "working");
        startIn(theme);
        for (int second = 0; second < 65; ++second) {
            loop.advance(1);
            if (second % 8 != 0 && second < 58) {
                continue;
            }
            const QImage shown = picture();
            panel->resize(321, 700); // sets the words afresh
            panel->resize(320, 700);
            EXPECT_LE(difference(shown, picture()), 1) << theme << ' ' << second;
        }
    }
}

} // namespace

} // namespace mimkins::test
