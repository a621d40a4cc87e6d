#include "Base/Perf.h"

#include <gmock/gmock.h>

namespace mimkins::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Perf, NamesStandBetweenCommas) {
    EXPECT_THAT(perf::namesIn("pets,glow"), ElementsAre("glow", "pets"));
    EXPECT_THAT(perf::namesIn("shadow"), ElementsAre("shadow"));
}

TEST(Perf, EmptyNamesAreDropped) {
    EXPECT_THAT(perf::namesIn(""), IsEmpty());
    EXPECT_THAT(perf::namesIn(",,ambient,,pets,"), ElementsAre("ambient", "pets"));
}

TEST(Perf, NothingIsSwitchedOff) {
    EXPECT_THAT(perf::off(), IsEmpty());
}

} // namespace

} // namespace mimkins::test
