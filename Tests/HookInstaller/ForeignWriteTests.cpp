// Another program's writes at each moment of ours, played step by step.

#include "HookInstaller/InstallerTest.h"

#include "Base/Error.h"

#include <gmock/gmock.h>

namespace mimkins::test {

namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;
using Status = HookInstaller::Status;

class ForeignWriteTest : public InstallerTest {
protected:
    ForeignWriteTest() {
        installer.installScript();
        write("{\"version\":0}");
    }

    /// Runs the works at the first, second and so on of the moments, one each.
    static std::function<void()> inTurn(std::vector<std::function<void()>> works) {
        return [works = std::move(works), next = std::size_t{0}]() mutable {
            if (next < works.size()) {
                works[next++]();
            }
        };
    }

    void replace(std::string_view text) const { replaceByRename(settings, text); }

    bool holds(std::string_view part) const { return read().find(part) != std::string::npos; }

    std::vector<std::string> backedUp() const {
        std::vector<std::string> contents;
        for (const auto& name : backups()) {
            contents.push_back(readWhole(paths.clientFolder() + "/" + name));
        }
        return contents;
    }
};

TEST_F(ForeignWriteTest, beforeTheComparisonLeadsToAnotherRound) {
    files.beforeWriting = inTurn({[&] { replace("{\"version\":1}"); }});
    installer.connect();
    EXPECT_TRUE(holds("\"version\": 1"));
    EXPECT_EQ(installer.status(), Status::connected);
    EXPECT_THAT(files.pauses, ElementsAre(std::chrono::microseconds(50'000)));
    EXPECT_THAT(backedUp(), ElementsAre("{\"version\":1}"));
}

TEST_F(ForeignWriteTest, duringTheBackupLeadsToAnotherRound) {
    files.beforeWriting = inTurn({[] {}, [&] { replace("{\"version\":1}"); }});
    installer.connect();
    EXPECT_TRUE(holds("\"version\": 1"));
    EXPECT_EQ(installer.status(), Status::connected);
    EXPECT_EQ(files.exchanges, 1);
    EXPECT_THAT(backedUp(), ElementsAre("{\"version\":1}"));
}

TEST_F(ForeignWriteTest, justBeforeTheExchangeComesBack) {
    files.beforeExchange = inTurn({[&] { replace("{\"version\":1}"); }});
    installer.connect();
    EXPECT_EQ(files.exchanges, 3);
    EXPECT_TRUE(holds("\"version\": 1"));
    EXPECT_EQ(installer.status(), Status::connected);
    EXPECT_THAT(backedUp(), ElementsAre("{\"version\":1}"));
    EXPECT_TRUE(temporaries().empty());
}

TEST_F(ForeignWriteTest, inPlaceJustBeforeTheExchangeComesBack) {
    files.beforeExchange = inTurn({[&] { write("{\"version\":1}"); }});
    installer.connect();
    EXPECT_TRUE(holds("\"version\": 1"));
    EXPECT_EQ(installer.status(), Status::connected);
}

TEST_F(ForeignWriteTest, alsoBeforeTheExchangeBackTheNewestStands) {
    files.beforeExchange = inTurn({[&] { replace("{\"version\":1}"); }, [&] { replace("{\"version\":2}"); }});
    installer.connect();
    EXPECT_TRUE(holds("\"version\": 2"));
    EXPECT_EQ(installer.status(), Status::connected);
    // The version that its successor replaced, perhaps without having seen it, is kept too.
    EXPECT_THAT(backedUp(), UnorderedElementsAre("{\"version\":1}", "{\"version\":2}"));
    EXPECT_TRUE(temporaries().empty());
}

TEST_F(ForeignWriteTest, inPlaceBeforeTheExchangeBackTheNewestStands) {
    files.beforeExchange = inTurn({[&] { replace("{\"version\":1}"); }, [&] { write("{\"version\":2}"); }});
    installer.connect();
    EXPECT_TRUE(holds("\"version\": 2"));
    EXPECT_EQ(installer.status(), Status::connected);
}

TEST_F(ForeignWriteTest, inAQuickSuccessionTheNewestStands) {
    for (const int length : {3, 4, 5, 31, 32, 33, 34, 40}) {
        std::vector<std::function<void()>> works;
        for (int version = 1; version <= length; ++version) {
            works.emplace_back([this, version] { replace("{\"version\":" + std::to_string(version) + "}"); });
        }
        write("{\"version\":0}");
        files.exchanges = 0;
        files.beforeExchange = inTurn(works);
        installer.connect();
        EXPECT_TRUE(holds("\"version\": " + std::to_string(length))) << read();
        EXPECT_EQ(installer.status(), Status::connected);
        EXPECT_TRUE(temporaries().empty());
    }
}

TEST_F(ForeignWriteTest, removalBeforeTheExchangeIsAccepted) {
    files.beforeExchange = inTurn({[&] { std::filesystem::remove(settings); }});
    EXPECT_EQ(installer.disconnect(), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(settings));
    EXPECT_TRUE(temporaries().empty());
    EXPECT_TRUE(backups().empty());
}

TEST_F(ForeignWriteTest, removalBeforeTheExchangeBackIsAccepted) {
    files.beforeExchange =
        inTurn({[&] { replace("{\"version\":1}"); }, [&] { std::filesystem::remove(settings); }});
    EXPECT_EQ(installer.disconnect(), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(settings));
    EXPECT_THAT(backedUp(), ElementsAre("{\"version\":1}"));
    EXPECT_TRUE(temporaries().empty());
}

TEST_F(ForeignWriteTest, ofTheFirstSettingsIsNotReplaced) {
    std::filesystem::remove(settings);
    files.beforeMoving = inTurn({[&] { write("{\"version\":1}"); }});
    EXPECT_NE(installer.connect(), std::nullopt);
    EXPECT_TRUE(holds("\"version\": 1"));
    EXPECT_EQ(installer.status(), Status::connected);
    EXPECT_TRUE(temporaries().empty());
}

TEST_F(ForeignWriteTest, onEveryRoundGivesUp) {
    int version = 0;
    files.beforeWriting = [&] { replace("{\"version\":" + std::to_string(++version) + "}"); };
    try {
        installer.connect();
        ADD_FAILURE();
    } catch (const Error& error) {
        EXPECT_EQ(error.domain(), Error::ownDomain);
        EXPECT_EQ(error.code(), 3);
        EXPECT_STREQ(
            error.what(),
            "settings.json kept changing while Mimkins tried to update it. Try again in a moment."
        );
    }
    EXPECT_EQ(files.pauses, std::vector(5, std::chrono::microseconds(50'000)));
    EXPECT_EQ(read(), "{\"version\":5}");
    EXPECT_TRUE(backups().empty());
    EXPECT_TRUE(temporaries().empty());
}

TEST_F(ForeignWriteTest, ofWhatIsNotJsonStopsAtOnce) {
    files.beforeWriting = inTurn({[&] { replace("half"); }});
    EXPECT_THROW(installer.connect(), Error);
    EXPECT_EQ(read(), "half");
    EXPECT_EQ(files.pauses.size(), 1U);
}

TEST_F(ForeignWriteTest, withoutExchangeAPlainRenameDoes) {
    files.exchangeAnswer = std::errc::operation_not_supported;
    EXPECT_NE(installer.connect(), std::nullopt);
    EXPECT_EQ(installer.status(), Status::connected);
    files.beforeWriting = inTurn({[&] { replace("{\"version\":1}"); }});
    installer.connect();
    EXPECT_TRUE(holds("\"version\": 1"));
    EXPECT_TRUE(temporaries().empty());
}

TEST_F(ForeignWriteTest, aFailedRenameLeavesTheSettingsAndTheBackup) {
    files.exchangeAnswer = std::errc::operation_not_supported;
    files.renameAnswer = std::errc::read_only_file_system;
    const HookInstaller::Status before = installer.status();
    try {
        installer.disconnect();
        ADD_FAILURE();
    } catch (const Error& error) {
        EXPECT_EQ(error.domain(), Error::posixDomain);
        EXPECT_EQ(error.code(), EROFS);
    }
    EXPECT_EQ(read(), "{\"version\":0}");
    EXPECT_THAT(backedUp(), ElementsAre("{\"version\":0}"));
    EXPECT_TRUE(temporaries().empty());
    EXPECT_EQ(installer.status(), before);
}

TEST_F(ForeignWriteTest, comesBackByRenameWhenTheExchangeBackFails) {
    files.beforeExchange = inTurn({
        [&] { replace("{\"version\":1}"); },
        [&] { files.exchangeAnswer = std::errc::io_error; },
    });
    files.beforeWriting = [&] { files.exchangeAnswer.reset(); };
    installer.connect();
    EXPECT_TRUE(holds("\"version\": 1"));
    EXPECT_EQ(installer.status(), Status::connected);
    EXPECT_TRUE(temporaries().empty());
}

TEST_F(ForeignWriteTest, staysInTheTemporaryFileWhenNothingWorksAnyMore) {
    files.renameAnswer = std::errc::io_error;
    files.beforeExchange = inTurn({
        [&] { replace("{\"version\":1}"); },
        [&] { files.exchangeAnswer = std::errc::io_error; },
    });
    try {
        installer.disconnect();
        ADD_FAILURE();
    } catch (const Error& error) {
        EXPECT_THAT(error.what(), ::testing::HasSubstr(".settings.json.mimkins-4242.tmp"));
    }
    ASSERT_EQ(temporaries().size(), 1U);
    EXPECT_EQ(readWhole(paths.clientFolder() + "/" + temporaries().front()), "{\"version\":1}");
}

} // namespace

} // namespace mimkins::test
