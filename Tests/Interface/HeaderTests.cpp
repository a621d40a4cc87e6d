#include "Interface/PanelFixture.h"
#include "PanelView/MoonIcon.h"

#include "Drawing/RecordingCanvas.h"

#include <QTest>

#include <numbers>

namespace mimkins::test {

namespace {

constexpr double fullTurn = 2 * std::numbers::pi;

class Header : public PanelFixture {
protected:
    PanelHeader& header() { return panel->header(); }
};

TEST_F(Header, MoonTogglesTheWrapUp) {
    start();
    EXPECT_FALSE(header().moon().isFilled());
    EXPECT_EQ(header().moon().toolTip(), "Wrap-up: what's left before you log off");
    QTest::mouseClick(&header().moon(), Qt::LeftButton);
    EXPECT_EQ(drawer.mode(), DrawerMode::sweep);
    EXPECT_TRUE(header().moon().isFilled());
    EXPECT_EQ(header().moon().toolTip(), "Back to the pets");
    EXPECT_EQ(header().titleLabel().text(), "Wrap-up");
    EXPECT_FALSE(header().summaryLabel().isVisible());
    QTest::mouseClick(&header().moon(), Qt::LeftButton);
    EXPECT_EQ(drawer.mode(), DrawerMode::pets);
    EXPECT_TRUE(header().summaryLabel().isVisible());
}

TEST_F(Header, CogTogglesTheSettings) {
    start();
    EXPECT_EQ(header().cog().toolTip(), "Settings");
    header().cog().click();
    EXPECT_EQ(drawer.mode(), DrawerMode::settings);
    EXPECT_EQ(header().cog().toolTip(), "Back to the pets");
    header().cog().click();
    EXPECT_EQ(drawer.mode(), DrawerMode::pets);
}

TEST_F(Header, CogInTheWrapUpGoesToTheSettings) {
    start();
    drawer.setMode(DrawerMode::sweep);
    header().cog().click();
    EXPECT_EQ(drawer.mode(), DrawerMode::settings);
    header().moon().click();
    EXPECT_EQ(drawer.mode(), DrawerMode::sweep);
}

TEST(PanelHeaderTest, NothingOverlapsWhateverTheFont) {
    for (const auto& theme : PetTheme::all()) {
        const PetTheme plain = theme.resolved(ColorScheme::dark);
        for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
            for (const int width : {280, 320, 380}) {
                QWidget panel;
                auto& header = *new PanelHeader;
                header.setParent(&panel);
                header.setLook(plain, Typography(plain.font, scale));
                header.present(DrawerMode::pets, {SummaryKind::waiting, "128 waiting on you"});
                header.setGeometry(0, 0, width, 80);
                panel.resize(width, 80);
                panel.show();
                QCoreApplication::processEvents();
                SCOPED_TRACE(testing::Message() << theme.id << " at " << scale << " in " << width);
                const auto left = header.titleLabel().geometry();
                const auto middle = header.moon().geometry();
                const auto right = header.summaryLabel().geometry();
                EXPECT_GE(left.left(), 0);
                EXPECT_LT(left.right(), middle.left());
                EXPECT_LT(middle.right(), right.left());
                EXPECT_LT(right.right(), width);
                EXPECT_GE(right.width(), 36);
            }
        }
    }
}

TEST(PanelHeaderTest, OrdinaryTitleIsWhole) {
    for (const auto& theme : PetTheme::all()) {
        PanelHeader header;
        header.setLook(theme, Typography(theme.font, 1));
        header.present(DrawerMode::pets, {SummaryKind::waiting, "5 waiting on you"});
        header.resize(280, 60);
        header.show();
        EXPECT_GE(header.titleLabel().width(), header.titleLabel().sizeHint().width()) << theme.id;
    }
}

TEST_F(Header, CogIsAwayWithoutAScreenBehindIt) {
    start();
    EXPECT_FALSE(header().cog().isVisible());
    EXPECT_TRUE(header().moon().isVisible());
    panel->addScreen(DrawerMode::settings, [](const CardLook&) { return new PanelScreen; });
    EXPECT_TRUE(header().cog().isVisible());
}

TEST(CogButtonTest, SpinsOnceRoundEachWay) {
    CogButton cog;
    cog.setOpen(true, true);
    EXPECT_TRUE(cog.isSpinning());
    EXPECT_TRUE(cog.step(0.25));
    EXPECT_NEAR(cog.turn(), fullTurn / 2, 0.01);
    EXPECT_FALSE(cog.step(0.26));
    EXPECT_EQ(cog.turn(), fullTurn);
    cog.setOpen(true, true);
    EXPECT_FALSE(cog.isSpinning());
    cog.setOpen(false, true);
    while (cog.step(0.1)) {
    }
    EXPECT_EQ(cog.turn(), 0);
}

TEST(CogButtonTest, StandsStillWhereNobodySeesIt) {
    CogButton cog;
    cog.setOpen(true, false);
    EXPECT_FALSE(cog.isSpinning());
    EXPECT_EQ(cog.turn(), fullTurn);
}

TEST(MoonIcon, IsFilledOrOutlined) {
    const auto fills = [](IconForm form) {
        RecordingCanvas canvas;
        GraphicsContext context(canvas);
        const std::vector<Color> colors{Color::white(), Color::black()};
        drawMoon(context, form, colors, 22);
        return canvas.commands().size();
    };
    EXPECT_EQ(fills(IconForm::filled), fills(IconForm::outlined) + 1);
}

} // namespace

} // namespace mimkins::test
