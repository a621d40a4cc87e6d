#include "Drawing/Geometry.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace mimkins::test {

namespace {

const Rect target{0, 0, 100, 100};

TEST(Geometry, CoveredOnlyWhenNothingIsLeft) {
    EXPECT_FALSE(isCovered(target, {}));
    EXPECT_TRUE(isCovered(target, {{0, 0, 100, 100}}));
    EXPECT_TRUE(isCovered(target, {{-10, -10, 200, 200}}));
    EXPECT_FALSE(isCovered(target, {{0, 0, 100, 99}}));
    EXPECT_FALSE(isCovered(target, {{200, 200, 500, 500}}));
}

TEST(Geometry, SeveralCoversHideTogether) {
    EXPECT_TRUE(isCovered(target, {{0, 0, 60, 100}, {50, 0, 60, 100}}));
    EXPECT_FALSE(isCovered(target, {{0, 0, 49, 100}, {50, 0, 60, 100}}));
    EXPECT_FALSE(isCovered(target, {{0, 0, 100, 40}, {0, 60, 100, 40}, {0, 0, 40, 100}, {60, 0, 40, 100}}));
}

TEST(Geometry, EmptyRectangleIsHidden) {
    EXPECT_TRUE(isCovered({5, 5, 0, 10}, {}));
}

RC_GTEST_PROP(Geometry, PiecesTakeTheAreaThatIsLeft, ()) {
    const auto number = rc::gen::inRange(-20, 120);
    const auto length = rc::gen::inRange(0, 120);
    const Rect cut{
        static_cast<double>(*number), static_cast<double>(*number), static_cast<double>(*length),
        static_cast<double>(*length)};
    int expected = 0;
    for (int x = 0; x < 100; ++x) {
        for (int y = 0; y < 100; ++y) {
            const bool inside = x >= cut.x && x + 1 <= cut.maxX() && y >= cut.y && y + 1 <= cut.maxY();
            expected += inside ? 0 : 1;
        }
    }
    double area = 0;
    for (const auto& piece : subtract(target, cut)) {
        area += piece.width * piece.height;
    }
    RC_ASSERT(area == expected);
}

} // namespace

} // namespace mimkins::test
