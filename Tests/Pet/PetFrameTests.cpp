#include "Base/StableSeed.h"
#include "Pet/PetFrame.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <cmath>
#include <fstream>
#include <limits>

namespace mimkins::test {

namespace {

PetFrame frameAt(double t, std::uint64_t seed) {
    PetFrame frame;
    frame.t = t;
    frame.seed = seed;
    return frame;
}

TEST(Choose, AgreesWithTheTable) {
    std::ifstream table(MIMKINS_SOURCE_DIR "/Tests/Data/pet/choices.txt");
    std::uint64_t seed = 0;
    double t = 0;
    int count = 0;
    double every = 0;
    std::uint64_t salt = 0;
    int index = 0;
    double phase = 0;
    int lines = 0;
    while (table >> seed >> t >> count >> every >> salt >> index >> phase) {
        const SlotChoice choice = frameAt(t, seed).choose(count, every, salt);
        EXPECT_EQ(choice.index, index) << seed << " " << t << " " << salt;
        EXPECT_DOUBLE_EQ(choice.phase, phase);
        ++lines;
    }
    EXPECT_EQ(lines, 2000);
}

TEST(Choose, ByHand) {
    // Seed, salt and slot of 0 mix to 0.
    EXPECT_EQ(frameAt(0, 0).choose(5, 10, 0).index, 0);
    // 1 survives the first step, is multiplied to 0xBF58476D1CE4E5B9, and is mixed with its own upper 35
    // bits, 0x5FAC23B68: 0xBF58476D1CE4E5B9 ^ 0x5FAC23B68 ends in ...D1.
    const std::uint64_t mixed = 0xBF58476D1CE4E5B9ULL ^ (0xBF58476D1CE4E5B9ULL >> 29);
    EXPECT_EQ(frameAt(0, 1).choose(7, 10, 0).index, static_cast<int>(mixed % 7));
    EXPECT_EQ(frameAt(0, 1).choose(16, 10, 0).index, 0x1);
}

TEST(Choose, SlotsBeginAtMultiplesOfTheirLength) {
    EXPECT_DOUBLE_EQ(frameAt(45, 9).choose(3, 45, 7).phase, 0);
    EXPECT_NEAR(frameAt(44.999, 9).choose(3, 45, 7).phase, 44.999, 1e-9);
    EXPECT_NEAR(frameAt(-0.5, 9).choose(3, 45, 7).phase, 44.5, 1e-9);
    EXPECT_EQ(frameAt(1, 9).choose(3, 45, 7).index, frameAt(44, 9).choose(3, 45, 7).index);
}

RC_GTEST_PROP(Choose, StaysInRange, (std::uint64_t seed, std::uint16_t salt)) {
    const auto t = static_cast<double>(*rc::gen::inRange<std::int64_t>(-1'000'000'000, 2'000'000'000)) / 7;
    const int count = *rc::gen::inRange(1, 40);
    const SlotChoice choice = frameAt(t, seed).choose(count, 6, salt);
    RC_ASSERT(choice.index >= 0 && choice.index < count);
    RC_ASSERT(choice.phase >= 0 && choice.phase < 6 + 1e-6);
}

TEST(Choose, SaltsAreIndependent) {
    // Over many slots two salts agree about as often as chance has it.
    constexpr std::array<std::uint64_t, 16> salts{1, 2, 3, 4, 5, 6, 7, 9, 14, 15, 16, 18, 19, 21, 22, 24};
    constexpr int slots = 4000;
    constexpr int count = 4;
    for (std::size_t left = 0; left < salts.size(); ++left) {
        for (std::size_t right = left + 1; right < salts.size(); ++right) {
            int equal = 0;
            for (int slot = 0; slot < slots; ++slot) {
                const PetFrame frame = frameAt(slot * 6.0 + 1, 77);
                equal +=
                    frame.choose(count, 6, salts[left]).index == frame.choose(count, 6, salts[right]).index;
            }
            // Six standard deviations about a quarter.
            EXPECT_NEAR(equal, slots / count, 6 * std::sqrt(slots * 0.25 * 0.75))
                << salts[left] << " " << salts[right];
        }
    }
}

TEST(Choose, SpreadsEvenly) {
    std::array<int, 27> counts{};
    constexpr int slots = 27'000;
    for (int slot = 0; slot < slots; ++slot) {
        ++counts[static_cast<std::size_t>(frameAt(slot * 6.0, 5).choose(27, 6, 1).index)];
    }
    for (const int count : counts) {
        EXPECT_NEAR(count, 1000, 6 * std::sqrt(1000.0));
    }
}

TEST(ChooseDeathTest, WrongRequestsStopTheProcess) {
    EXPECT_DEATH(frameAt(0, 0).choose(0, 1, 0), "");
    EXPECT_DEATH(frameAt(0, 0).choose(-1, 1, 0), "");
    EXPECT_DEATH(frameAt(std::numeric_limits<double>::infinity(), 0).choose(1, 1, 0), "");
    EXPECT_DEATH(frameAt(std::nan(""), 0).choose(1, 1, 0), "");
    EXPECT_DEATH(frameAt(1e300, 0).choose(1, 1, 0), "");
}

TEST(PetFrame, FollowsFromSeedAndClock) {
    const Date reference{animationReference};
    const Pet pet{PetAction::typing, 1234, reference + 90, 2, true};
    const PetFrame frame = petFrame(pet, {}, reference + 100);
    EXPECT_EQ(frame.seed, 1234U);
    EXPECT_DOUBLE_EQ(frame.t, 100 + (1234 % 997) / 97.0);
    EXPECT_DOUBLE_EQ(frame.elapsed, 10);
    EXPECT_DOUBLE_EQ(frame.blinkOffset, (1234 % 40) / 10.0);
    EXPECT_DOUBLE_EQ(frame.hue, (1234 % 360) / 360.0);
    EXPECT_EQ(frame.effort, 2);
    EXPECT_TRUE(frame.waitingOnKeeper);
}

TEST(PetFrame, ShuffleMixesIntoTheSeed) {
    PetLook look;
    look.shuffle = 3;
    EXPECT_EQ(petFrame({PetAction::idle, 5, {}, 0, false}, look, {}).seed, (3 * 0x9E3779B97F4A7C15ULL) ^ 5U);
}

TEST(PetFrame, SpeedScalesTheClockAndNotTheElapsedTime) {
    PetLook look;
    look.speed = 1.7;
    const Date reference{animationReference};
    const PetFrame frame = petFrame({PetAction::idle, 0, reference, 0, false}, look, reference + 1000);
    EXPECT_DOUBLE_EQ(frame.t, 1700);
    EXPECT_DOUBLE_EQ(frame.elapsed, 1000);
    // A slot of 45 seconds lasts 45 / 1.7 real ones.
    const double last = 45 / 1.7;
    const auto at = [&](double seconds) {
        return petFrame({PetAction::idle, 0, reference, 0, false}, look, reference + seconds);
    };
    EXPECT_LT(at(last - 0.001).choose(3, 45, 7).phase, 45);
    EXPECT_GT(at(last - 0.001).choose(3, 45, 7).phase, 44.9);
    EXPECT_LT(at(last + 0.001).choose(3, 45, 7).phase, 0.1);
}

TEST(PetFrame, AFixedHueDiffersALittle) {
    PetLook look;
    look.hue = 0.36;
    for (std::uint64_t seed = 0; seed < 200; ++seed) {
        const PetFrame frame = petFrame({PetAction::idle, seed, {}, 0, false}, look, {});
        EXPECT_GE(frame.hue, 0.36);
        EXPECT_LE(frame.hue, 0.36 + 0.039 + 1e-12);
        // The contrast lies opposite: between 0.86 and 0.899.
        EXPECT_EQ(frame.colors.accent, Color::hsb(frame.hue + 0.5, 0.6, 0.95));
    }
}

TEST(PetFrame, Colours) {
    const PetFrame red = petFrame({PetAction::idle, 0, {}, 0, false}, {}, {});
    EXPECT_EQ(red.colors.top, Color::hsb(0, 0.45, 0.97));
    EXPECT_EQ(red.colors.bottom, Color::hsb(0, 0.6, 0.82));
    EXPECT_EQ(red.colors.limb, Color::hsb(0, 0.6, 0.68));
    EXPECT_EQ(red.colors.hand, Color::hsb(0, 0.35, 0.97));
    EXPECT_EQ(red.colors.accent, Color::hsb(0.5, 0.6, 0.95));
    EXPECT_EQ(red.colors.ink, Color::grey(0.1));
    EXPECT_EQ(red.colors.paper, Color::grey(0.97));
}

TEST(PetFrame, ProductsAreCutToOneAndAnOutlineColoursTheLimbs) {
    PetLook look;
    look.saturation = 5;
    look.brightness = 1.05;
    look.outline = Color{0.15, 0.15, 0.2};
    const PetFrame frame = petFrame({PetAction::idle, 0, {}, 0, false}, look, {});
    EXPECT_EQ(frame.colors.top, Color::hsb(0, 1, 1));
    EXPECT_EQ(frame.colors.bottom, Color::hsb(0, 1, 0.82 * 1.05));
    EXPECT_EQ(frame.colors.limb, *look.outline);
    EXPECT_EQ(frame.outline, look.outline);
}

TEST(PetFrame, IdsThatDifferInALetterDifferInEverything) {
    const PetFrame one = petFrame({PetAction::idle, stableSeed("session-a"), {}, 0, false}, {}, {});
    const PetFrame other = petFrame({PetAction::idle, stableSeed("session-b"), {}, 0, false}, {}, {});
    EXPECT_NE(one.seed, other.seed);
    EXPECT_NE(one.hue, other.hue);
    EXPECT_NE(one.blinkOffset, other.blinkOffset);
    EXPECT_NE(one.t, other.t);
    EXPECT_NE(stableSeed(""), 0U);
}

TEST(PetLook, APartyOverridesEveryAction) {
    PetLook look;
    look.party = true;
    for (std::size_t index = 0; index < petActionCount; ++index) {
        Pet pet;
        pet.action = static_cast<PetAction>(index);
        EXPECT_EQ(actionOnStage(pet, look), PetAction::party);
        EXPECT_EQ(actionOnStage(pet, {}), pet.action);
    }
}

TEST(Color, FromHue) {
    const auto near = [](const Color& left, const Color& right) {
        return std::fabs(left.red - right.red) + std::fabs(left.green - right.green) +
                   std::fabs(left.blue - right.blue) <
               1e-12;
    };
    EXPECT_TRUE(near(Color::hsb(0, 1, 1), {1, 0, 0}));
    EXPECT_TRUE(near(Color::hsb(1.0 / 3, 1, 1), {0, 1, 0}));
    EXPECT_TRUE(near(Color::hsb(2.0 / 3, 1, 1), {0, 0, 1}));
    EXPECT_TRUE(near(Color::hsb(0.5, 0.5, 0.8), {0.4, 0.8, 0.8}));
    EXPECT_TRUE(near(Color::hsb(1.25, 1, 1), Color::hsb(0.25, 1, 1)));
    EXPECT_TRUE(near(Color::hsb(0.7, 0, 0.3), Color::grey(0.3)));
}

} // namespace

} // namespace mimkins::test
