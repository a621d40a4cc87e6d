#pragma once

#include "Drawing/RecordingCanvas.h"

#include <gtest/gtest.h>

#include <cmath>

namespace mimkins::test {

/// A canvas with a context on it, and its commands by kind.
class Drawn {
public:
    GraphicsContext& context() { return context_; }

    std::size_t size() const { return canvas_.commands().size(); }

    const FillCommand& fill(std::size_t index) const {
        return std::get<FillCommand>(canvas_.commands().at(index));
    }

    const StrokeCommand& stroke(std::size_t index) const {
        return std::get<StrokeCommand>(canvas_.commands().at(index));
    }

private:
    RecordingCanvas canvas_;
    GraphicsContext context_{canvas_};
};

inline Rect boxOf(const PathElement& element) {
    return {element.a.x, element.a.y, element.b.x, element.b.y};
}

inline const Color& colorOf(const Shading& shading) {
    return std::get<Color>(shading);
}

inline void expectNear(const Rect& shown, const Rect& expected) {
    constexpr double slack = 1e-9;
    EXPECT_NEAR(shown.x, expected.x, slack);
    EXPECT_NEAR(shown.y, expected.y, slack);
    EXPECT_NEAR(shown.width, expected.width, slack);
    EXPECT_NEAR(shown.height, expected.height, slack);
}

inline void expectNear(const Color& shown, const Color& expected) {
    constexpr double slack = 1e-12;
    EXPECT_EQ(shown.name, expected.name);
    EXPECT_NEAR(shown.red, expected.red, slack);
    EXPECT_NEAR(shown.green, expected.green, slack);
    EXPECT_NEAR(shown.blue, expected.blue, slack);
    EXPECT_NEAR(shown.opacity, expected.opacity, slack);
}

inline double fractionOf(double value) {
    return value - std::floor(value);
}

} // namespace mimkins::test
