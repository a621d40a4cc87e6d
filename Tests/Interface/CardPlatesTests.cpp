#include "PanelView/CardLook.h"
#include "PanelView/CardView.h"
#include "PanelView/GlowRing.h"
#include "PanelView/StretchedPicture.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstdlib>

namespace mimkins::test {

namespace {

constexpr int room = CardView::shadowRoom;

QImage drawnAtOnce(QSize size, double ratio, const CardRow& row, const CardLook& look, CardStates states) {
    QImage picture = clearPicture(size, ratio);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF card(room, room, size.width() - 2 * room, size.height() - 2 * room);
    drawCardGround(painter, card, row, look, states);
    return picture;
}

int largestDifference(const QImage& one, const QImage& other) {
    int most = one.size() == other.size() ? 0 : 255;
    for (int y = 0; most < 255 && y < one.height(); ++y) {
        const auto* left = one.constScanLine(y);
        const auto* right = other.constScanLine(y);
        for (int byte = 0; byte < 4 * one.width(); ++byte) {
            most = std::max(most, std::abs(left[byte] - right[byte]));
        }
    }
    return most;
}

CardLook lookOf(const PetTheme& theme) {
    return {&theme, Typography(theme.font, 1), 62, {}};
}

TEST(CardPlates, LookAtEveryHeightAsIfDrawnForIt) {
    CardRow row;
    for (const PetTheme& each : PetTheme::all()) {
        const PetTheme theme = each.resolved(ColorScheme::dark);
        const CardLook look = lookOf(theme);
        for (const Mood mood : {Mood::working, Mood::needsPermission}) {
            row.mood = mood;
            row.waiting = mood == Mood::needsPermission;
            for (const CardStates states : {CardStates{}, CardStates{true, true}}) {
                for (const int height : {40, 70, 101, 180}) {
                    for (const double ratio : {1.0, 1.25, 2.0}) {
                        const QSize size(340, height);
                        const auto plate = look.plates->picture({size, room, ratio}, row, look, states);
                        const auto direct = drawnAtOnce(size, ratio, row, look, states);
                        // Gradients are rounded a little differently at each place.
                        EXPECT_LE(largestDifference(plate, direct), 1) << theme.id << height << " " << ratio;
                    }
                }
            }
        }
    }
}

TEST(CardPlates, RememberWidthAndMood) {
    const PetTheme theme = PetTheme::nightSky().resolved(ColorScheme::dark);
    const CardLook look = lookOf(theme);
    CardRow row;
    row.mood = Mood::working;
    const CardPlates::Place place{{300, 120}, room, 1};
    const QImage first = look.plates->picture(place, row, look, {});
    row.mood = Mood::snag;
    EXPECT_NE(look.plates->picture(place, row, look, {}), first);
    row.mood = Mood::working;
    for (int width = 301; width < 340; ++width) {
        EXPECT_EQ(look.plates->picture({{width, 120}, room, 1}, row, look, {}).width(), width);
    }
    EXPECT_EQ(look.plates->picture(place, row, look, {}), first);
}

QImage ring(GlowRing& glow, int height) {
    const QSize size(340, height);
    const GlowRing::Shape shape{
        size, QRectF(room, room, size.width() - 2 * room, height - 2 * room), 14,
        PetTheme::nightSky().waiting};
    QImage picture = clearPicture(size, 1);
    QPainter painter(&picture);
    glow.draw(painter, shape, Date{1000});
    return picture;
}

TEST(GlowRing, KeepsItsCornersAtEveryHeight) {
    GlowRing glow;
    const QImage low = ring(glow, 77);
    const QImage high = ring(glow, 200);
    ASSERT_EQ(high.height(), 200);
    EXPECT_EQ(low.copy(0, 0, 340, 38), high.copy(0, 0, 340, 38));
    EXPECT_EQ(low.copy(0, 77 - 38, 340, 38), high.copy(0, 200 - 38, 340, 38));
    EXPECT_GT(qAlpha(high.pixel(room, 100)), 0);
    EXPECT_EQ(qAlpha(high.pixel(170, 100)), 0);
}

} // namespace

} // namespace mimkins::test
