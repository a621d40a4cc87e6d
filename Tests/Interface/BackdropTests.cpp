#include "Interface/PanelFixture.h"

#include "PanelView/EdgeTab.h"

#include <QImage>
#include <QPainter>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <set>

namespace mimkins::test {

namespace {

class Ground : public PanelFixture {
protected:
    void start(const std::string& theme) {
        panel.reset(); // it refers to the store
        settings.themeId = theme;
        PanelFixture::start();
    }

    /// How many moments the moving part shows within a second.
    template <typename Moment>
    int framesInASecond(const Moment& moment) {
        std::set<double> shown;
        const double before = moment();
        for (int step = 0; step < 240; ++step) {
            loop.advance(1.0 / 240);
            shown.insert(moment());
        }
        shown.erase(before);
        return static_cast<int>(shown.size());
    }

    int particleFrames() {
        return framesInASecond([this] { return panel->backdrop().particleMoment().value_or(0); });
    }

    int borderFrames() {
        return framesInASecond([this] { return panel->backdrop().borderMoment(); });
    }

    int papersFrames() {
        return framesInASecond([this] { return panel->confetti().moment(); });
    }
};

TEST_F(Ground, ParticlesAndBorderMoveEvenWithoutSessions) {
    start("night");
    EXPECT_NEAR(particleFrames(), 10, 1);
    EXPECT_NEAR(borderFrames(), 12, 1);
}

TEST_F(Ground, NothingMovesWherePlainThemesStand) {
    for (const char* plain : {"classic", "paper", "midnight", "terminal"}) {
        start(plain);
        EXPECT_EQ(particleFrames(), 0) << plain;
        EXPECT_EQ(borderFrames(), 0) << plain;
    }
}

TEST_F(Ground, PausedPartsStandWithoutBeingRemoved) {
    start("ocean");
    drawer.setOpen(false);
    const auto particles = panel->backdrop().particleMoment();
    const double border = panel->backdrop().borderMoment();
    const QImage before = panel->grab().toImage();
    loop.advance(3);
    EXPECT_EQ(panel->backdrop().particleMoment(), particles);
    EXPECT_TRUE(particles.has_value());
    EXPECT_EQ(panel->backdrop().borderMoment(), border);
    EXPECT_EQ(panel->grab().toImage(), before);
    drawer.setOpen(true);
    loop.advance(3);
    EXPECT_NE(panel->grab().toImage(), before);
}

TEST_F(Ground, AnotherThemeBringsItsOwnMovement) {
    start("midnight");
    settings.themeId = "forest";
    panel->setSettings(settings);
    EXPECT_NEAR(particleFrames(), 10, 1);
    settings.themeId = "midnight";
    panel->setSettings(settings);
    EXPECT_EQ(particleFrames(), 0);
}

TEST_F(Ground, RepaintingWhatMovedGivesTheWholePicture) {
    // Each theme's picture after many small repaints is what one repaint at that moment gives.
    for (const char* id : {"night", "forest", "ocean", "synthwave"}) {
        start(id);
        QImage kept(panel->size(), QImage::Format_ARGB32_Premultiplied);
        kept.fill(Qt::transparent);
        const PetTheme theme = PetTheme::named(id).resolved(ColorScheme::dark);
        const Backdrop::Form form{panel->size(), 18, 1};
        Backdrop moving;
        Backdrop standing;
        for (int frame = 0; frame <= 20; ++frame) {
            const double t = 1000 + 0.1 * frame;
            QRegion region = moving.moveParticles(theme, form, t) + moving.moveBorder(theme, form, t);
            if (frame == 0) {
                region = QRect(QPoint(0, 0), panel->size());
            }
            QPainter painter(&kept);
            painter.setClipRegion(region);
            moving.draw(painter, region, theme, form);
        }
        QImage whole(panel->size(), QImage::Format_ARGB32_Premultiplied);
        whole.fill(Qt::transparent);
        standing.moveParticles(theme, form, 1002);
        standing.moveBorder(theme, form, 1002);
        QPainter painter(&whole);
        standing.draw(painter, QRegion(whole.rect()), theme, form);
        painter.end();
        EXPECT_EQ(kept, whole) << id;
    }
}

TEST_F(Ground, CornersStayClear) {
    for (const PetTheme& theme : PetTheme::all()) {
        start(std::string(theme.id));
        QImage image(panel->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        panel->render(&image, {}, {}, {});
        EXPECT_EQ(qAlpha(image.pixel(1, 1)), 0) << theme.id;
        EXPECT_EQ(qAlpha(image.pixel(1, image.height() - 2)), 0) << theme.id;
        EXPECT_GT(qAlpha(image.pixel(image.width() - 1, 40)), 200) << theme.id;
    }
}

TEST_F(Ground, ConfettiFallsOverTheWholePanelDuringAParty) {
    start("night");
    EXPECT_FALSE(panel->confetti().isVisible());
    EXPECT_EQ(papersFrames(), 0);
    settings.motion.party = true;
    panel->setSettings(settings);
    EXPECT_TRUE(panel->confetti().isVisible());
    EXPECT_EQ(panel->confetti().size(), panel->size());
    EXPECT_TRUE(panel->confetti().testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_NEAR(papersFrames(), 24, 1);
    panel->resize(300, 500);
    EXPECT_EQ(panel->confetti().size(), QSize(300, 500));
    drawer.setCovered(true);
    EXPECT_EQ(papersFrames(), 0);
    drawer.setCovered(false);
    settings.motion.party = false;
    panel->setSettings(settings);
    EXPECT_FALSE(panel->confetti().isVisible());
    EXPECT_EQ(papersFrames(), 0);
}

TEST_F(Ground, ConfettiLetsClicksThrough) {
    report("a", "waiting", R"(,"tool":"Bash","open":"https://example.org/a")");
    settings.motion.party = true;
    start("night");
    auto* card = panel->list().cards().front();
    const QPoint middle = card->mapTo(panel.get(), card->rect().center());
    EXPECT_EQ(panel->childAt(middle), card);
}

class Tab : public testing::Test {
protected:
    void show(const EdgeTab::Content& content) {
        tab.setContent(content);
        tab.show();
    }

    bool glows() {
        const double before = tab.glowMoment();
        loop.advance(0.35);
        return tab.glowMoment() != before;
    }

    bool wiggles() {
        double most = 0;
        for (int step = 0; step < 100; ++step) {
            loop.advance(1.0 / 30);
            most = std::max(most, std::abs(tab.offset()));
        }
        return most > 1;
    }

    ManualRunLoop loop;
    EdgeTab tab{loop};
};

constexpr EdgeTabBadge blocked{true, 2};
constexpr EdgeTabBadge replies{false, 3};

TEST_F(Tab, RepliesAloneNeitherGlowNorShake) {
    show({replies, true, true});
    EXPECT_EQ(loop.timers(), 0U);
    EXPECT_FALSE(glows());
    EXPECT_FALSE(wiggles());
    EXPECT_EQ(tab.accessibleDescription(), "3 new replies");
}

TEST_F(Tab, BlockedSessionsGlowAndShake) {
    show({blocked, true, true});
    EXPECT_TRUE(glows());
    EXPECT_TRUE(wiggles());
    EXPECT_EQ(tab.accessibleDescription(), "2 waiting on you");
}

TEST_F(Tab, WithoutTheSettingTheGlowStays) {
    show({blocked, true, true});
    loop.advance(1);
    tab.setContent({blocked, true, false});
    EXPECT_TRUE(glows());
    EXPECT_FALSE(wiggles());
    EXPECT_EQ(tab.offset(), 0);
    EXPECT_EQ(loop.timers(), 1U);
}

TEST_F(Tab, StopsWhenNobodyIsBlockedAnyMore) {
    show({blocked, true, true});
    EXPECT_EQ(loop.timers(), 2U);
    tab.setContent({replies, true, true});
    EXPECT_EQ(loop.timers(), 0U);
    EXPECT_EQ(tab.offset(), 0);
}

TEST_F(Tab, HiddenOneKeepsTheLastGlow) {
    show({blocked, true, true});
    EXPECT_TRUE(glows());
    const double last = tab.glowMoment();
    tab.hide();
    EXPECT_FALSE(glows());
    EXPECT_EQ(tab.glowMoment(), last);
    EXPECT_EQ(loop.timers(), 0U);
    tab.show();
    EXPECT_TRUE(glows());
}

TEST_F(Tab, CoveredOneKeepsStill) {
    show({blocked, true, true});
    EXPECT_TRUE(glows());
    tab.setCovered(true);
    EXPECT_FALSE(glows());
    EXPECT_FALSE(wiggles());
    EXPECT_EQ(loop.timers(), 0U);
    tab.setCovered(false);
    EXPECT_TRUE(glows());
    EXPECT_TRUE(wiggles());
}

TEST_F(Tab, IsDrawnAnewWhenItsWordsOrColoursChange) {
    show({blocked, true, false});
    const QImage two = tab.grab().toImage();
    tab.setContent({{true, 3}, true, false});
    const QImage three = tab.grab().toImage();
    EXPECT_NE(three, two);
    tab.setTheme(PetTheme::named("paper"));
    EXPECT_NE(tab.grab().toImage(), three);
    tab.setTheme(PetTheme::nightSky());
    tab.setContent({blocked, true, false});
    EXPECT_EQ(tab.grab().toImage(), two);
}

TEST_F(Tab, GlowPulses) {
    show({blocked, true, false});
    const QImage before = tab.grab().toImage();
    loop.advance(0.45);
    EXPECT_NE(tab.grab().toImage(), before);
}

TEST_F(Tab, GlowsTenTimesASecond) {
    show({blocked, true, false});
    std::set<double> moments;
    for (int step = 0; step < 1000; ++step) {
        loop.advance(0.001);
        moments.insert(tab.glowMoment());
    }
    EXPECT_NEAR(static_cast<double>(moments.size()), 10.5, 1);
}

TEST_F(Tab, WordsFollowTheDrawer) {
    show({replies, true, true});
    EXPECT_EQ(tab.toolTip(), "Hide Mimkins");
    tab.setContent({replies, false, true});
    EXPECT_EQ(tab.toolTip(), "Show Mimkins");
}

} // namespace

} // namespace mimkins::test
