#include "Base/StableSeed.h"
#include "Presentation/Elapsed.h"
#include "Presentation/SweepWords.h"
#include "Presentation/When.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>
#include <unicode/timezone.h>

#include <limits>
#include <memory>
#include <string>
#include <vector>

using namespace mimkins;

namespace {

constexpr Date now{1'795'246'200}; // 21 November 2026, 07:30 UTC
constexpr double day = 86'400;

/// Words of dates in a fixed locale and time zone, which go back to what they were.
class Words : public testing::Test {
protected:
    Words() : zone_(icu::TimeZone::createDefault()) { use("en_GB", "UTC"); }

    ~Words() override {
        UErrorCode status = U_ZERO_ERROR;
        icu::Locale::setDefault(locale_, status);
        icu::TimeZone::adoptDefault(zone_.release());
    }

    static void use(const char* locale, const char* zone) {
        UErrorCode status = U_ZERO_ERROR;
        icu::Locale::setDefault(icu::Locale(locale), status);
        icu::TimeZone::adoptDefault(icu::TimeZone::createTimeZone(zone));
    }

private:
    icu::Locale locale_;
    std::unique_ptr<icu::TimeZone> zone_;
};

using When = Words;

std::string whenAt(Date fire, Date present = now) {
    return when({"id", fire, false, ""}, present);
}

SweepReport::RepoLine repository(std::optional<std::string> branch) {
    return {"/home/kim/shop", {3, 1, std::move(branch), {"a"}}, "Title", "local"};
}

SweepWords::Row onlyRow(const SweepReport& report) {
    const auto words = SweepWords::of(report, now);
    EXPECT_EQ(words.sections.size(), 1U);
    EXPECT_EQ(words.sections.front().rows.size(), 1U);
    return words.sections.front().rows.front();
}

} // namespace

TEST(Elapsed, HasThreeForms) {
    EXPECT_EQ(elapsed(-5), "0s");
    EXPECT_EQ(elapsed(0.9), "0s");
    EXPECT_EQ(elapsed(59.9), "59s");
    EXPECT_EQ(elapsed(60), "1m");
    EXPECT_EQ(elapsed(3'599), "59m");
    EXPECT_EQ(elapsed(3'600), "1h 0m");
    EXPECT_EQ(elapsed(11'100), "3h 5m");
    EXPECT_EQ(elapsed(200'000), "55h 33m");
}

TEST(Elapsed, SurvivesAnyNumber) {
    EXPECT_EQ(elapsed(std::numeric_limits<double>::quiet_NaN()), "0s");
    EXPECT_EQ(elapsed(-1e300), "0s");
    EXPECT_EQ(elapsed(1e300), elapsed(std::numeric_limits<double>::infinity()));
}

TEST_F(When, ATaskWithoutADateRecurs) {
    EXPECT_EQ(when({"id", std::nullopt, true, ""}, now), "Recurring");
}

TEST_F(When, NamesTodayAndTomorrow) {
    EXPECT_EQ(whenAt(now + 7 * 3600), "Today 14:30");
    EXPECT_EQ(whenAt(now - 7 * 3600), "Today 00:30");
    EXPECT_EQ(whenAt(now + 16.5 * 3600), "Tomorrow 00:00");
    EXPECT_EQ(whenAt(now + 16.5 * 3600 - 1), "Today 23:59");
    EXPECT_EQ(whenAt(now + day), "Tomorrow 07:30");
    EXPECT_EQ(whenAt(now + 2 * day), "23 Nov 2026, 07:30");
    EXPECT_EQ(whenAt(now - day), "20 Nov 2026, 07:30");
    EXPECT_EQ(whenAt(now + 365 * day), "21 Nov 2027, 07:30");
}

TEST_F(When, FollowsTheTimeZoneAndItsChanges) {
    use("en_GB", "Asia/Tokyo");
    EXPECT_EQ(whenAt(now + 7 * 3600), "Today 23:30");
    EXPECT_EQ(whenAt(now + 8 * 3600), "Tomorrow 00:30");
    use("en_GB", "Europe/Berlin");
    const Date lastOfSummer{1'792'879'200}; // 25 October 2026, 00:00 in Berlin, a day of 25 hours
    EXPECT_EQ(whenAt(lastOfSummer + 24.5 * 3600, lastOfSummer), "Today 23:30");
    EXPECT_EQ(whenAt(lastOfSummer + 25.5 * 3600, lastOfSummer), "Tomorrow 00:30");
}

TEST_F(When, FollowsTheLocale) {
    use("de_DE", "UTC");
    EXPECT_EQ(whenAt(now + 2 * day), "23.11.2026, 07:30");
    EXPECT_EQ(whenAt(now), "Today 07:30");
}

TEST_F(When, SurvivesAnyDate) {
    EXPECT_FALSE(whenAt({1e300}).empty());
    EXPECT_FALSE(whenAt({-1e300}).empty());
    whenAt({std::numeric_limits<double>::infinity()});
    whenAt({std::numeric_limits<double>::quiet_NaN()});
}

TEST_F(Words, NothingLeftIsAllClear) {
    SweepReport report;
    report.generated = now + 7 * 3600;
    const auto words = SweepWords::of(report, now);
    EXPECT_EQ(
        words.allClear,
        (SweepWords::AllClear{"All clear. Good night! 🌙", "Nothing waiting on you, nothing left to commit."})
    );
    EXPECT_TRUE(words.sections.empty());
    EXPECT_EQ(words.checked, "Checked 14:30");
}

TEST_F(Words, ScheduledWorkIsForTheNightShift) {
    SweepReport report;
    report.scheduled = {{{"id", std::nullopt, true, "p"}, "Title", std::nullopt}};
    const auto words = SweepWords::of(report, now);
    ASSERT_TRUE(words.allClear);
    EXPECT_EQ(words.allClear->title, "All clear. The night shift has it from here 🌙");
    ASSERT_EQ(words.sections.size(), 1U);
    EXPECT_EQ(words.sections.front().title, "Scheduled");
}

TEST_F(Words, AnythingElseIsNotAllClear) {
    SweepReport repos;
    repos.repos = {repository("main")};
    EXPECT_FALSE(SweepWords::of(repos, now).allClear);
    SweepReport running;
    running.running = {{"Title", std::nullopt, 1}};
    EXPECT_FALSE(SweepWords::of(running, now).allClear);
    SweepReport waiting;
    waiting.waiting = {Session{}};
    EXPECT_FALSE(SweepWords::of(waiting, now).allClear);
}

TEST_F(Words, SectionsHaveAnOrder) {
    SweepReport report;
    report.waiting = {Session{}, Session{}};
    report.repos = {repository("main")};
    report.scheduled = {{{"id", std::nullopt, true, "p"}, "Title", std::nullopt}};
    report.running = {{"Title", std::nullopt, 1}};
    std::vector<std::string> titles;
    for (const auto& section : SweepWords::of(report, now).sections) {
        titles.push_back(section.title + " " + std::to_string(section.rows.size()));
    }
    EXPECT_EQ(
        titles, (std::vector<std::string>{
                    "Waiting on you 2", "Uncommitted changes 1", "Scheduled 1", "Still running 1"})
    );
}

TEST_F(Words, AWaitingSession) {
    SweepReport report;
    report.waiting.emplace_back();
    auto& session = report.waiting.front();
    session.id = "id";
    session.mood = Mood::needsPermission;
    session.since = now - 125;
    session.project = "shop";
    session.localId = "local";
    SweepWords::Row row = onlyRow(report);
    EXPECT_EQ(row.title, "shop");
    EXPECT_EQ(row.detail, "Needs your OK · 2m");
    EXPECT_EQ(row.seed, stableSeed("id"));
    EXPECT_EQ(row.mood, Mood::needsPermission);
    EXPECT_EQ(row.link, session.jumpURL());
    session.title = "Title";
    session.localId.reset();
    row = onlyRow(report);
    EXPECT_EQ(row.title, "Title");
    EXPECT_EQ(row.link, std::nullopt);
}

TEST_F(Words, ARepository) {
    SweepReport report;
    report.repos = {repository("main")};
    const auto row = onlyRow(report);
    EXPECT_EQ(row.title, "shop");
    EXPECT_EQ(row.detail, "+3 \u22121 on main · Title");
    EXPECT_EQ(row.seed, stableSeed("/home/kim/shop"));
    EXPECT_EQ(row.mood, std::nullopt);
    ASSERT_TRUE(row.link);
    EXPECT_TRUE(row.link->ends_with("code/continue?session=local")) << *row.link;
    report.repos = {repository(std::nullopt)};
    EXPECT_EQ(onlyRow(report).detail, "+3 \u22121 · Title");
}

TEST_F(Words, AScheduledTask) {
    SweepReport report;
    report.scheduled = {{{"task", now + 3600, false, "Look again"}, "Title", "local"}};
    const auto row = onlyRow(report);
    EXPECT_EQ(row.title, "Today 08:30");
    EXPECT_EQ(row.detail, "Look again · Title");
    EXPECT_EQ(row.seed, stableSeed("task"));
    EXPECT_TRUE(row.link);
    report.scheduled.front().item.prompt.clear();
    report.scheduled.front().localId.reset();
    EXPECT_EQ(onlyRow(report).detail, "Follow-up · Title");
    EXPECT_EQ(onlyRow(report).link, std::nullopt);
}

TEST_F(Words, RunningCommands) {
    SweepReport report;
    report.running = {{"Title", "local", 1}};
    EXPECT_EQ(onlyRow(report).title, "Title");
    EXPECT_EQ(onlyRow(report).detail, "1 background command");
    EXPECT_EQ(onlyRow(report).seed, stableSeed("Titlelocal"));
    EXPECT_TRUE(onlyRow(report).link);
    report.running = {{"Title", std::nullopt, 2}};
    EXPECT_EQ(onlyRow(report).detail, "2 background commands");
    EXPECT_EQ(onlyRow(report).seed, stableSeed("Title"));
    EXPECT_EQ(onlyRow(report).link, std::nullopt);
}

TEST(SweepButton, TellsWhatGoesOn) {
    EXPECT_EQ(SweepWords::button(false), "Check again");
    EXPECT_EQ(SweepWords::button(true), "Checking…");
    EXPECT_STREQ(SweepWords::checkingSessions, "Checking your sessions…");
    EXPECT_STREQ(SweepWords::rowHelp, "Open this session");
}
