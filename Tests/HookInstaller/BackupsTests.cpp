#include "HookInstaller/Backups.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace mimkins::test {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> named(const std::vector<std::string>& stamps) {
    std::vector<std::string> names;
    for (const auto& stamp : stamps) {
        names.push_back(std::string(backupPrefix) + stamp);
    }
    return names;
}

TEST(Backups, areNamedAfterTheMoment) {
    EXPECT_EQ(backupName({1'795'246'266.9}, 1), "settings.json.bak-mimkins-2026-11-21T073106Z");
    EXPECT_EQ(backupName({1'795'246'266.0}, 2), "settings.json.bak-mimkins-2026-11-21T073106Z-2");
}

TEST(Backups, threeAreKept) {
    EXPECT_THAT(outdatedBackups({}), IsEmpty());
    EXPECT_THAT(outdatedBackups(named({"c", "a", "b"})), IsEmpty());
    EXPECT_EQ(outdatedBackups(named({"t4", "t2", "t1", "t3"})), named({"t1"}));
}

TEST(Backups, otherFilesDoNotCount) {
    EXPECT_THAT(
        outdatedBackups({"settings.json", "settings.json.bak", "settings.json.bak-mimkins", "a", "b", "c"}),
        IsEmpty()
    );
}

TEST(Backups, numbersAreComparedAsNumbers) {
    const std::string stamp = "2026-11-21T073106Z";
    EXPECT_EQ(
        outdatedBackups(named({stamp + "-10", stamp + "-9", stamp, stamp + "-2", stamp + "-99"})),
        named({stamp, stamp + "-2"})
    );
    EXPECT_EQ(
        outdatedBackups(named({"2026-11-21T073107Z", stamp + "-10", stamp + "-3", stamp})), named({stamp})
    );
}

TEST(Backups, longOrOddTailsBelongToTheStamp) {
    EXPECT_EQ(outdatedBackups(named({"b-100", "b", "b-1x", "a-99"})), named({"a-99"}));
    EXPECT_EQ(outdatedBackups(named({"5", "x", "y", "--"})), named({"--"}));
}

} // namespace

} // namespace mimkins::test
