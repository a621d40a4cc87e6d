#include "Settings/Migration.h"

#include "Settings/LoginItem.h"
#include "Support/MemoryPreferencesStore.h"

#include "Base/Error.h"
#include "Base/Log.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mimkins::test {

namespace {

using Value = PreferencesStore::Value;

auto opening(std::map<std::string, Value> values, int* asked = nullptr) {
    return [values = std::move(values), asked]() -> std::unique_ptr<const PreferencesStore> {
        if (asked != nullptr) {
            ++*asked;
        }
        return std::make_unique<MemoryPreferencesStore>(values);
    };
}

TEST(Migration, CopiesWhatIsMissing) {
    MemoryPreferencesStore own({{"themeId", std::string("paper")}});
    Migration::fromZorbly(
        own, opening(
                 {{"themeId", std::string("ocean")},
                  {"tabHeight", 0.3},
                  {"antics", false},
                  {"shuffle", std::int64_t{7}}}
             )
    );
    EXPECT_EQ(own.value("themeId"), Value(std::string("paper")));
    EXPECT_EQ(own.value("tabHeight"), Value(0.3));
    EXPECT_EQ(own.value("antics"), Value(false));
    EXPECT_EQ(own.value("shuffle"), Value(std::int64_t{7}));
    EXPECT_EQ(own.value("migratedFromZorbly"), Value(true));
}

TEST(Migration, FalseAndNoughtAreValues) {
    MemoryPreferencesStore own({{"antics", false}, {"shuffle", std::int64_t{0}}});
    Migration::fromZorbly(own, opening({{"antics", true}, {"shuffle", std::int64_t{5}}}));
    EXPECT_EQ(own.value("antics"), Value(false));
    EXPECT_EQ(own.value("shuffle"), Value(std::int64_t{0}));
}

TEST(Migration, YoungerPreferencesStayBehind) {
    MemoryPreferencesStore own;
    Migration::fromZorbly(
        own, opening({{"modelBadges", false}, {"reorder", std::string("live")}, {"other", true}})
    );
    EXPECT_EQ(own.values.size(), 1U);
}

TEST(Migration, HappensOnce) {
    MemoryPreferencesStore own;
    int asked = 0;
    Migration::fromZorbly(own, opening({}, &asked));
    Migration::fromZorbly(own, opening({{"themeId", std::string("ocean")}}, &asked));
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(own.value("themeId"));
}

TEST(Migration, IsMarkedBeforeTheFormerDomainIsOpened) {
    MemoryPreferencesStore own;
    Migration::fromZorbly(own, [&own]() -> std::unique_ptr<const PreferencesStore> {
        EXPECT_EQ(own.value("migratedFromZorbly"), Value(true));
        return nullptr;
    });
    EXPECT_EQ(own.values.size(), 1U);
}

TEST(Migration, NamesNineteenKeys) {
    EXPECT_EQ(Migration::keys.size(), 19U);
    EXPECT_EQ(Migration::keys.front(), "themeId");
    EXPECT_EQ(Migration::keys.back(), "drawerOpen");
}

class FailingService final : public LoginService {
public:
    void registerItem() override { throw Error::posix(13, "Couldn't write"); }

    void unregisterItem() override { ++unregistered; }

    Status status() const override { return Status::notRegistered; }

    int unregistered = 0;
};

class LoginItemTest : public testing::Test {
protected:
    LoginItemTest() {
        log::setSink([this](const log::Line& line) { lines.emplace_back(line.text); });
    }

    ~LoginItemTest() override { log::setSink({}); }

    std::vector<std::string> lines;
    FailingService service;
    LoginItem item{service};
    MemoryPreferencesStore preferences;
};

TEST_F(LoginItemTest, AFailureIsLoggedAndDropped) {
    item.set(true);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].rfind("login item register failed: ", 0), 0U);
    EXPECT_EQ(lines[1], "login item status: 0");
    item.set(false);
    EXPECT_EQ(service.unregistered, 1);
    EXPECT_EQ(lines.size(), 3U);
}

TEST_F(LoginItemTest, IsTurnedOnOnceEvenIfThatFails) {
    item.enableOnFirstRun(preferences);
    EXPECT_EQ(preferences.value("loginItemConfigured"), Value(true));
    EXPECT_EQ(lines.size(), 2U);
    item.enableOnFirstRun(preferences);
    EXPECT_EQ(lines.size(), 2U);
}

} // namespace

} // namespace mimkins::test
