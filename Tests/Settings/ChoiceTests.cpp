#include "Settings/Choice.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

using namespace mimkins;

namespace {

/// The words of all cases in order.
template <typename Case>
std::string words() {
    std::string words;
    for (const auto& [value, word] : Choice<Case>::cases) {
        words += std::string(word) + " ";
        EXPECT_EQ(choiceWord(value), word);
        EXPECT_EQ(choiceNamed<Case>(word), value);
    }
    return words;
}

} // namespace

TEST(Choice, ListsAllCasesInOrder) {
    EXPECT_EQ(words<PetSize>(), "small medium large ");
    EXPECT_EQ(words<DrawerWidth>(), "narrow regular wide ");
    EXPECT_EQ(words<Liveliness>(), "calm normal hyper ");
    EXPECT_EQ(words<ReorderMode>(), "always whenNeeded never ");
    EXPECT_EQ(words<Hotkey>(), "optCmdP ctrlOptP ctrlOptSpace off ");
}

TEST(Choice, UnknownWordsGiveTheMiddleCaseAndOfShortcutsTheFirst) {
    for (const std::string_view word : {"", "Small", " small", "42"}) {
        EXPECT_EQ(choiceNamed<PetSize>(word), PetSize::medium);
        EXPECT_EQ(choiceNamed<DrawerWidth>(word), DrawerWidth::regular);
        EXPECT_EQ(choiceNamed<Liveliness>(word), Liveliness::normal);
        EXPECT_EQ(choiceNamed<ReorderMode>(word), ReorderMode::whenNeeded);
        EXPECT_EQ(choiceNamed<Hotkey>(word), Hotkey::optCmdP);
    }
}
