#include "Motion.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace mimkins::test {

TEST(PosterTime, ShowsSomethingOfEveryRoutine) {
    for (std::size_t index = 0; index < routineCount; ++index) {
        const auto routine = static_cast<Routine>(index);
        const int effort = routine >= Routine::flyingKick ? 1 : 0;
        EXPECT_FALSE(record({routine, posterTime(routine), 168, effort}).empty())
            << std::string(name(routine));
    }
}

TEST(PosterTime, ShowsAllDotsOfAThought) {
    const auto dots = [](double t) { return record({Routine::thoughtDots, t}).size(); };
    EXPECT_EQ(dots(posterTime(Routine::thoughtDots)), dots(1.5));
    EXPECT_GT(dots(1.5), dots(1.0));
}

} // namespace mimkins::test
