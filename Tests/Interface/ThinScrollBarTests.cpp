#include "PanelView/ThinScrollBar.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QTest>

namespace mimkins::test {

namespace {

class Bar : public testing::Test {
protected:
    Bar() {
        bar.setTheme(PetTheme::nightSky().resolved(ColorScheme::dark));
        bar.resize(6, 204); // 200 without its margins
        bar.setPageStep(100);
        bar.setRange(0, 300);
        bar.show();
    }

    ThinScrollBar bar;
};

TEST_F(Bar, HandleShowsHowMuchOfTheWholeIsSeenAndWhere) {
    EXPECT_EQ(bar.handle(), QRect(0, 2, 6, 50));
    bar.setValue(300);
    EXPECT_EQ(bar.handle(), QRect(0, 152, 6, 50));
    bar.setRange(0, 100000);
    EXPECT_EQ(bar.handle().height(), 24); // it can still be held
    bar.setRange(0, 0);
    EXPECT_EQ(bar.handle(), QRect(0, 2, 6, 200));
    bar.resize(6, 3);
    EXPECT_LE(bar.handle().height(), 3);
}

TEST_F(Bar, FollowsTheHandThatHoldsIt) {
    QTest::mousePress(&bar, Qt::LeftButton, {}, QPoint(3, 12));
    QTest::mouseMove(&bar, QPoint(3, 12 + 75));
    EXPECT_EQ(bar.value(), 150);
    QTest::mouseMove(&bar, QPoint(3, 1000));
    EXPECT_EQ(bar.value(), 300);
    QTest::mouseMove(&bar, QPoint(3, -1000));
    EXPECT_EQ(bar.value(), 0);
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, QPoint(3, 0));
    QTest::mouseMove(&bar, QPoint(3, 100));
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(Bar, PressBesideTheHandleTurnsAPage) {
    QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(3, 190));
    EXPECT_EQ(bar.value(), 100);
    QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(3, 5));
    EXPECT_EQ(bar.value(), 0);
    QTest::mouseClick(&bar, Qt::RightButton, {}, QPoint(3, 190));
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(Bar, IsDrawnInOneEvenColour) {
    QImage picture(bar.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    bar.render(&picture, {}, {}, {});
    const QRgb middle = picture.pixel(3, 27);
    EXPECT_GT(qAlpha(middle), 0);
    for (int y = 6; y < 48; ++y) {
        EXPECT_EQ(picture.pixel(3, y), middle) << y;
    }
    EXPECT_EQ(qAlpha(picture.pixel(3, 60)), 0);
    EXPECT_EQ(qAlpha(picture.pixel(3, 0)), 0);
    EXPECT_FALSE(bar.testAttribute(Qt::WA_OpaquePaintEvent)); // what lies behind it is drawn
}

} // namespace

} // namespace mimkins::test
