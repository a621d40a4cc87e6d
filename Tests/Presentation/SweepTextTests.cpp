#include "Presentation/SweepText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>

using namespace mimkins;

namespace {

SweepWords someWords() {
    SweepWords words;
    words.sections = {
        {SweepWords::Kind::waiting,
         "Waiting on you",
         {{"Short", "Needs your OK · 2m", 0, Mood::needsPermission, std::nullopt},
          {"A longer title", "Has a question · 1h 5m", 0, Mood::question, std::nullopt}}},
        {SweepWords::Kind::running,
         "Still running",
         {{"Night", "2 background commands", 0, std::nullopt, std::nullopt}}}};
    words.checked = "Checked 14:30";
    return words;
}

} // namespace

TEST(SweepText, SetsTheSectionsInTwoColumns) {
    EXPECT_EQ(
        sweepText(someWords(), {}), "Waiting on you 2\n"
                                    "  Short           Needs your OK · 2m\n"
                                    "  A longer title  Has a question · 1h 5m\n"
                                    "\n"
                                    "Still running 1\n"
                                    "  Night           2 background commands\n"
                                    "\n"
                                    "Checked 14:30\n"
    );
}

TEST(SweepText, AllClearComesFirst) {
    SweepWords words;
    words.allClear = {"Title", "Detail"};
    words.checked = "Checked";
    EXPECT_EQ(sweepText(words, {}), "Title\nDetail\n\nChecked\n");
    EXPECT_EQ(
        sweepText(words, {80, true}), "\033[32mTitle\033[0m\n\033[2mDetail\033[0m\n\n\033[2mChecked\033[0m\n"
    );
}

TEST(SweepText, ColorsWhatNeedsTheUser) {
    const auto text = sweepText(someWords(), {80, true});
    EXPECT_NE(text.find("\033[33mShort\033[0m"), std::string::npos);
    EXPECT_NE(text.find("\033[34mNight\033[0m"), std::string::npos);
    EXPECT_NE(text.find("\033[1mStill running\033[0m\033[2m 1\033[0m\n"), std::string::npos);
}

TEST(SweepText, NoLineIsWiderThanTheTerminal) {
    auto words = someWords();
    words.allClear = {"All clear. The night shift has it from here 🌙", "Nothing waiting on you."};
    words.sections[0].rows.push_back(
        {std::string(300, 'x'), std::string(300, 'y'), 0, std::nullopt, std::nullopt}
    );
    for (std::size_t width = 1; width < 120; ++width) {
        std::istringstream lines(sweepText(words, {width, false}));
        for (std::string line; std::getline(lines, line);) {
            EXPECT_LE(displayWidth(line), std::max(width, std::size_t{4})) << line;
        }
    }
}

TEST(SweepText, OutsideTextStaysInItsLine) {
    auto words = someWords();
    words.sections[0].rows[0].title = "a\nb\033[2J";
    words.sections[0].rows[0].detail = "c\rd";
    const auto text = sweepText(words, {});
    EXPECT_NE(text.find("  a b [2J         c d\n"), std::string::npos) << text;
}
