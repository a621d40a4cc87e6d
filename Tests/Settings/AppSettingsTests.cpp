#include "Settings/AppSettings.h"

#include "Support/ManualRunLoop.h"
#include "Support/MemoryPreferencesStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <variant>
#include <vector>

using namespace mimkins;
using testing::ElementsAre;
using testing::IsEmpty;
using Value = PreferencesStore::Value;
using Stored = std::map<std::string, Value>;

namespace {

class SoundRecorder final : public SoundPlayer {
public:
    void play(const std::string& name) override { played.push_back(name); }

    std::vector<std::string> played;
};

/// Settings over a store with given contents, and what they told.
struct Fixture {
    explicit Fixture(Stored stored = {}) : store(std::move(stored)) {
        settings->changed().connect([this](std::string_view key) { told.emplace_back(key); });
    }

    Fixture(const Fixture&) = delete;
    Fixture& operator=(const Fixture&) = delete;

    test::MemoryPreferencesStore store;
    test::ManualRunLoop loop;
    SoundRecorder sounds;
    std::unique_ptr<AppSettings> settings =
        std::make_unique<AppSettings>(AppSettings::Parts{store, loop, sounds});
    std::vector<std::string> told;
};

void expectDefaults(const AppSettings& settings) {
    EXPECT_EQ(settings.themeId(), "night");
    EXPECT_EQ(settings.liveliness(), Liveliness::normal);
    EXPECT_EQ(settings.petSize(), PetSize::medium);
    EXPECT_TRUE(settings.antics());
    EXPECT_TRUE(settings.nameTags());
    EXPECT_TRUE(settings.crewHeads());
    EXPECT_TRUE(settings.modelBadges());
    EXPECT_EQ(settings.drawerWidth(), DrawerWidth::regular);
    EXPECT_EQ(settings.tabHeight(), 0.62);
    EXPECT_TRUE(settings.showDone());
    EXPECT_EQ(settings.reorder(), ReorderMode::whenNeeded);
    EXPECT_EQ(settings.leaveAfterMinutes(), 30);
    EXPECT_EQ(settings.stuckAfterMinutes(), 10);
    EXPECT_FALSE(settings.chirp());
    EXPECT_EQ(settings.chirpSound(), "Pop");
    EXPECT_TRUE(settings.wiggleTab());
    EXPECT_TRUE(settings.menuBarCount());
    EXPECT_EQ(settings.shuffle(), 0);
    EXPECT_EQ(settings.hotkey(), Hotkey::optCmdP);
    EXPECT_EQ(settings.customPrompt(), "");
    EXPECT_EQ(settings.partyUntil(), std::nullopt);
}

/// A stored value other than the default under each key.
Stored otherValues() {
    return {
        {"themeId", "paper"},
        {"liveliness", "hyper"},
        {"petSize", "large"},
        {"antics", false},
        {"nameTags", false},
        {"crewHeads", false},
        {"modelBadges", false},
        {"drawerWidth", "wide"},
        {"tabHeight", 0.2},
        {"showDone", false},
        {"reorder", "never"},
        {"leaveAfterMinutes", std::int64_t{120}},
        {"stuckAfterMinutes", std::int64_t{5}},
        {"chirp", true},
        {"chirpSound", "Frog"},
        {"wiggleTab", false},
        {"menuBarCount", false},
        {"shuffle", std::int64_t{7}},
        {"hotkey", "off"},
        {"customPrompt", "Run the tests"},
    };
}

} // namespace

TEST(AppSettings, AbsentKeysYieldTheDefaultsAndNothingIsWritten) {
    Fixture fixture;
    expectDefaults(*fixture.settings);
    EXPECT_THAT(fixture.store.written, IsEmpty());
    EXPECT_THAT(fixture.store.values, IsEmpty());
    fixture.settings->petSize.set(PetSize::large);
    EXPECT_THAT(fixture.store.written, ElementsAre("petSize"));
    EXPECT_EQ(fixture.store.values.size(), 1U);
}

TEST(AppSettings, StoredValuesAreRead) {
    const Fixture fixture(otherValues());
    const AppSettings& settings = *fixture.settings;
    EXPECT_EQ(settings.themeId(), "paper");
    EXPECT_EQ(settings.liveliness(), Liveliness::hyper);
    EXPECT_EQ(settings.petSize(), PetSize::large);
    EXPECT_FALSE(settings.antics());
    EXPECT_FALSE(settings.nameTags());
    EXPECT_FALSE(settings.crewHeads());
    EXPECT_FALSE(settings.modelBadges());
    EXPECT_EQ(settings.drawerWidth(), DrawerWidth::wide);
    EXPECT_EQ(settings.tabHeight(), 0.2);
    EXPECT_FALSE(settings.showDone());
    EXPECT_EQ(settings.reorder(), ReorderMode::never);
    EXPECT_EQ(settings.leaveAfterMinutes(), 120);
    EXPECT_EQ(settings.stuckAfterMinutes(), 5);
    EXPECT_TRUE(settings.chirp());
    EXPECT_EQ(settings.chirpSound(), "Frog");
    EXPECT_FALSE(settings.wiggleTab());
    EXPECT_FALSE(settings.menuBarCount());
    EXPECT_EQ(settings.shuffle(), 7);
    EXPECT_EQ(settings.hotkey(), Hotkey::off);
    EXPECT_EQ(settings.customPrompt(), "Run the tests");
    EXPECT_THAT(fixture.store.written, IsEmpty());
}

TEST(AppSettings, ValuesOfAnotherTypeAreIgnored) {
    auto wrong = otherValues();
    for (auto& [key, value] : wrong) {
        if (std::holds_alternative<std::string>(value)) {
            value = true;
        } else {
            value = "1";
        }
    }
    const Fixture fixture(wrong);
    expectDefaults(*fixture.settings);
}

TEST(AppSettings, BooleansAndNumbersAreDifferentTypes) {
    const Fixture fixture(Stored{
        {"antics", std::int64_t{0}},
        {"tabHeight", true},
        {"leaveAfterMinutes", true},
        {"shuffle", false},
        {"chirp", 1.0},
    });
    expectDefaults(*fixture.settings);
}

TEST(AppSettings, WholeNumbersAndOthersAreOneTypeAsLongAsNothingIsLost) {
    const Fixture fixture(Stored{{"tabHeight", std::int64_t{1}}, {"leaveAfterMinutes", 15.0}});
    EXPECT_EQ(fixture.settings->tabHeight(), 1.0);
    EXPECT_EQ(fixture.settings->leaveAfterMinutes(), 15);
    const Fixture lossy(Stored{
        {"leaveAfterMinutes", 15.5},
        {"stuckAfterMinutes", 1e300},
        {"shuffle", std::numeric_limits<double>::quiet_NaN()},
    });
    expectDefaults(*lossy.settings);
}

TEST(AppSettings, UnknownWordsGiveTheFallback) {
    const Fixture fixture(Stored{
        {"petSize", "gigantic"},
        {"drawerWidth", "Wide"},
        {"liveliness", ""},
        {"reorder", "sometimes"},
        {"hotkey", "ctrlAltDelete"},
    });
    EXPECT_EQ(fixture.settings->petSize(), PetSize::medium);
    EXPECT_EQ(fixture.settings->drawerWidth(), DrawerWidth::regular);
    EXPECT_EQ(fixture.settings->liveliness(), Liveliness::normal);
    EXPECT_EQ(fixture.settings->reorder(), ReorderMode::whenNeeded);
    EXPECT_EQ(fixture.settings->hotkey(), Hotkey::optCmdP);
}

TEST(AppSettings, ThemeThatNobodyKnowsStaysInTheSetting) {
    const Fixture fixture(Stored{{"themeId", "from-a-later-version"}});
    EXPECT_EQ(fixture.settings->themeId(), "from-a-later-version");
}

TEST(AppSettings, ShuffleStoredAsStringReadsZero) {
    const Fixture fixture(Stored{{"shuffle", "12"}});
    EXPECT_EQ(fixture.settings->shuffle(), 0);
    EXPECT_EQ(fixture.settings->petShuffle(), 0U);
}

TEST(AppSettings, ShuffleNeverActsAsNegative) {
    const Fixture fixture(Stored{{"shuffle", std::int64_t{-5}}});
    EXPECT_EQ(fixture.settings->shuffle(), -5);
    EXPECT_EQ(fixture.settings->petShuffle(), 0U);
}

TEST(AppSettings, ShufflePetsCountsOnAndBeginsAgainAtTheEnd) {
    Fixture fixture(Stored{{"shuffle", std::numeric_limits<std::int64_t>::max() - 1}});
    fixture.settings->shufflePets();
    EXPECT_EQ(fixture.settings->shuffle(), std::numeric_limits<std::int64_t>::max());
    fixture.settings->shufflePets();
    EXPECT_EQ(fixture.settings->shuffle(), 0);
    EXPECT_THAT(fixture.store.written, ElementsAre("shuffle", "shuffle"));
}

TEST(AppSettings, ChangesAreStoredAtOnceInTheirTypes) {
    Fixture fixture;
    AppSettings& settings = *fixture.settings;
    settings.themeId.set("paper");
    settings.liveliness.set(Liveliness::hyper);
    settings.petSize.set(PetSize::large);
    settings.antics.set(false);
    settings.nameTags.set(false);
    settings.crewHeads.set(false);
    settings.modelBadges.set(false);
    settings.drawerWidth.set(DrawerWidth::wide);
    settings.tabHeight.set(0.2);
    settings.showDone.set(false);
    settings.reorder.set(ReorderMode::never);
    settings.leaveAfterMinutes.set(120);
    settings.stuckAfterMinutes.set(5);
    settings.chirp.set(true);
    settings.chirpSound.set("Frog");
    settings.wiggleTab.set(false);
    settings.menuBarCount.set(false);
    settings.shuffle.set(7);
    settings.hotkey.set(Hotkey::off);
    settings.customPrompt.set("Run the tests");
    EXPECT_EQ(fixture.store.values, otherValues());
    EXPECT_EQ(fixture.told, fixture.store.written);
    EXPECT_EQ(fixture.told.size(), 20U);
}

TEST(AppSettings, NothingIsClamped) {
    Fixture fixture;
    fixture.settings->tabHeight.set(-3.5);
    fixture.settings->leaveAfterMinutes.set(-1);
    fixture.settings->stuckAfterMinutes.set(std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(fixture.settings->tabHeight(), -3.5);
    EXPECT_EQ(fixture.settings->rules().outOfPlayAfter, -60);
    EXPECT_GT(fixture.settings->rules().stuckAfter, 5e20);
}

TEST(AppSettings, TellsOnlyOfRealChanges) {
    Fixture fixture;
    std::vector<double> heights;
    fixture.settings->tabHeight.changed().connect([&](double height) { heights.push_back(height); });
    fixture.settings->tabHeight.set(0.62);
    fixture.settings->tabHeight.set(0.5);
    fixture.settings->tabHeight.set(0.5);
    EXPECT_THAT(fixture.told, ElementsAre("tabHeight"));
    EXPECT_THAT(heights, ElementsAre(0.5));
}

TEST(AppSettings, ListenersSeeTheNewValueAndFindItStored) {
    Fixture fixture;
    PetSize seen = PetSize::medium;
    bool stored = false;
    fixture.settings->changed().connect([&](std::string_view) {
        seen = fixture.settings->petSize();
        stored = fixture.store.values.contains("petSize");
    });
    fixture.settings->petSize.set(PetSize::small);
    EXPECT_EQ(seen, PetSize::small);
    EXPECT_TRUE(stored);
}

TEST(AppSettings, LaterChangesOfTheStoreDontArrive) {
    Fixture fixture;
    fixture.store.values["chirp"] = true;
    EXPECT_FALSE(fixture.settings->chirp());
    EXPECT_EQ(&fixture.settings->defaults(), &fixture.store);
}

TEST(AppSettings, DerivedNumbers) {
    Fixture fixture;
    AppSettings& settings = *fixture.settings;
    const std::vector<double> sizes{48, 62, 78};
    for (const auto& [size, word] : Choice<PetSize>::cases) {
        settings.petSize.set(size);
        EXPECT_EQ(settings.petPoints(), sizes.at(static_cast<std::size_t>(size))) << word;
    }
    const std::vector<double> widths{280, 320, 380};
    for (const auto& [width, word] : Choice<DrawerWidth>::cases) {
        settings.drawerWidth.set(width);
        EXPECT_EQ(settings.panelWidth(), widths.at(static_cast<std::size_t>(width))) << word;
    }
    const std::vector<double> speeds{0.6, 1.0, 1.7};
    for (const auto& [liveliness, word] : Choice<Liveliness>::cases) {
        settings.liveliness.set(liveliness);
        EXPECT_EQ(settings.petSpeed(), speeds.at(static_cast<std::size_t>(liveliness))) << word;
    }
}

TEST(AppSettings, RulesAreInSeconds) {
    const Fixture fixture(otherValues());
    EXPECT_EQ(fixture.settings->rules(), (SessionRules{300, 7200, false, ReorderMode::never}));
    EXPECT_EQ(Fixture().settings->rules(), SessionRules());
}

TEST(AppSettings, PetMotionFollowsTheSettings) {
    Fixture fixture(otherValues());
    const Date now = fixture.loop.now();
    EXPECT_EQ(fixture.settings->petMotion(now), (PetMotion{1.7, false, false, 7}));
    fixture.settings->throwParty();
    EXPECT_EQ(fixture.settings->petMotion(now), (PetMotion{1.7, false, true, 7}));
    EXPECT_EQ(Fixture().settings->petMotion(now), PetMotion());
}

TEST(AppSettings, PlayChirpPlaysTheChosenSoundOnce) {
    Fixture fixture;
    fixture.settings->playChirp();
    fixture.settings->chirpSound.set("No such sound");
    fixture.settings->playChirp();
    EXPECT_THAT(fixture.sounds.played, ElementsAre("Pop", "No such sound"));
}

TEST(AppSettings, PartyLastsEightSecondsAndItsEndIsTold) {
    Fixture fixture;
    const Date begin = fixture.loop.now();
    fixture.settings->throwParty();
    EXPECT_EQ(fixture.settings->partyUntil(), begin + 8);
    EXPECT_TRUE(fixture.settings->partying(begin));
    EXPECT_TRUE(fixture.settings->partying(begin + 7.999));
    EXPECT_FALSE(fixture.settings->partying(begin + 8));
    EXPECT_THAT(fixture.told, ElementsAre("partyUntil"));
    fixture.loop.advance(8.099);
    EXPECT_EQ(fixture.told.size(), 1U);
    fixture.loop.advance(0.002);
    EXPECT_THAT(fixture.told, ElementsAre("partyUntil", "partyUntil"));
    EXPECT_EQ(fixture.settings->partyUntil(), begin + 8);
    fixture.loop.advance(100);
    EXPECT_EQ(fixture.told.size(), 2U);
    EXPECT_THAT(fixture.store.written, IsEmpty());
}

TEST(AppSettings, SecondPartyExtendsTheFirstAndBothEndsAreTold) {
    Fixture fixture;
    const Date begin = fixture.loop.now();
    fixture.settings->throwParty();
    fixture.loop.advance(3);
    fixture.settings->throwParty();
    EXPECT_EQ(fixture.settings->partyUntil(), begin + 3 + 8);
    EXPECT_EQ(fixture.told.size(), 2U);
    fixture.loop.advance(5.2); // 8.2 seconds after the first
    EXPECT_EQ(fixture.told.size(), 3U);
    EXPECT_TRUE(fixture.settings->partying(fixture.loop.now()));
    fixture.loop.advance(2.8); // 8.0 seconds after the second
    EXPECT_EQ(fixture.told.size(), 3U);
    EXPECT_FALSE(fixture.settings->partying(fixture.loop.now()));
    fixture.loop.advance(0.2);
    EXPECT_EQ(fixture.told.size(), 4U);
    EXPECT_EQ(fixture.loop.timers(), 0U);
}

TEST(AppSettings, PartyDoesNotKeepTheSettingsAlive) {
    Fixture fixture;
    fixture.settings->throwParty();
    fixture.settings.reset();
    fixture.told.clear();
    fixture.loop.advance(10);
    EXPECT_THAT(fixture.told, IsEmpty());
}
