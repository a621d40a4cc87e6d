#include "Presentation/Notice.h"

#include "Base/StableSeed.h"

#include <gtest/gtest.h>

using namespace mimkins;

namespace {

using Kind = NextUp::Press::Kind;

constexpr Date now{1'795'246'096.0};

NextUp::Press pressOn(Kind kind, std::size_t others) {
    Session session;
    session.id = "a";
    session.mood = Mood::needsPermission;
    session.project = "shop";
    session.title = "Fix the basket";
    session.since = now + -425;
    return {kind, session, others, {}};
}

} // namespace

TEST(Notice, SaysThatNothingWaits) {
    EXPECT_EQ(notice({}, now), (Notice{"Nothing waiting on you", "All pets are busy or resting 🎉", 0}));
}

TEST(Notice, NamesTheNextSession) {
    EXPECT_EQ(
        notice(pressOn(Kind::show, 0), now),
        (Notice{"Next up: Fix the basket", "Needs your OK for 7m · press again to open", stableSeed("a")})
    );
}

TEST(Notice, CountsTheOthers) {
    EXPECT_EQ(
        notice(pressOn(Kind::show, 2), now).subtitle, "Needs your OK for 7m · press again to open · 2 more"
    );
}

TEST(Notice, SaysWhatOpens) {
    EXPECT_EQ(
        notice(pressOn(Kind::open, 2), now),
        (Notice{"Opening Fix the basket", "Needs your OK", stableSeed("a")})
    );
}

TEST(Notice, TakesTheProjectWithoutATitle) {
    auto press = pressOn(Kind::show, 0);
    press.session->title.reset();
    EXPECT_EQ(notice(press, now).title, "Next up: shop");
    press.kind = Kind::open;
    EXPECT_EQ(notice(press, now).title, "Opening shop");
}
