#include "HookInstaller/HookEntries.h"
#include "HookInstaller/SettingsText.h"
#include "Support/KnownLosses.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>

namespace mimkins::test {

namespace {

const Paths paths("/home/me");
constexpr int documents = 10'000;

/// Random settings, rich in what the rules look at: event names, groups, entries, values of the wrong type.
class Generator {
public:
    explicit Generator(unsigned seed) : random_(seed) {}

    /// `oursToo` lets entries of ours stand in the document already.
    SettingsObject document(bool oursToo) {
        oursToo_ = oursToo;
        SettingsObject root;
        for (int count = below(4); count > 0; --count) {
            root[text()] = value(3);
        }
        if (!chance(10)) {
            root["hooks"] = chance(10) ? value(2) : SettingsValue{hooks()};
        }
        return root;
    }

private:
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

    bool chance(int percent) { return below(100) < percent; }

    std::string text() {
        const std::array<std::string, 8> words{"a", "", "hooks", "command", "é\n\"\\/", "12", "Stop", "x y"};
        return words.at(static_cast<std::size_t>(below(8)));
    }

    SettingsValue value(int depth) {
        switch (below(depth > 0 ? 7 : 5)) {
        case 0:
            return {nullptr};
        case 1:
            return {chance(50)};
        case 2:
            return {SettingsNumber{std::to_string(below(1000)) + (chance(30) ? ".50e+7" : "")}};
        case 3:
        case 4:
            return {text()};
        case 5: {
            SettingsArray array;
            for (int count = below(4); count > 0; --count) {
                array.push_back(value(depth - 1));
            }
            return {array};
        }
        default: {
            SettingsObject object;
            for (int count = below(4); count > 0; --count) {
                object[text()] = value(depth - 1);
            }
            return {object};
        }
        }
    }

    SettingsValue entry() {
        if (chance(10)) {
            return value(1);
        }
        SettingsObject object{{"type", {"command"}}};
        if (oursToo_ && chance(40)) {
            object["command"] = {
                chance(50) ? currentHookCommand(paths) : "~/Developer/Zorbly/hook/status.sh"};
        } else {
            object["command"] = chance(10) ? value(1) : SettingsValue{text()};
        }
        if (chance(30)) {
            object["timeout"] = value(0);
        }
        return {object};
    }

    SettingsValue group() {
        if (chance(8)) {
            return value(2);
        }
        SettingsObject object;
        if (chance(50)) {
            object["matcher"] = {text()};
        }
        SettingsArray entries;
        for (int count = below(4); count > 0; --count) {
            entries.push_back(entry());
        }
        if (!chance(8)) {
            object["hooks"] = {entries};
        }
        return {object};
    }

    SettingsObject hooks() {
        SettingsObject events;
        for (int count = below(6); count > 0; --count) {
            SettingsArray groups;
            for (int groupCount = below(4); groupCount > 0; --groupCount) {
                groups.push_back(group());
            }
            const std::string name =
                chance(80) ? std::string(hookEvents.at(static_cast<std::size_t>(below(10)))) : text();
            events[name] = chance(8) ? value(2) : SettingsValue{groups};
        }
        return events;
    }

    std::mt19937 random_;
    bool oursToo_ = false;
};

TEST(StripProperty, disconnectingGivesBackTheDocument) {
    int unlossy = 0;
    for (unsigned seed = 0; seed < documents; ++seed) {
        const auto document = Generator(seed).document(false);
        const auto expected = withoutKnownLosses(document);
        unlossy += document == expected ? 1 : 0;
        auto root = document;
        addEntries(root, paths);
        ASSERT_EQ(findEntries(root, paths).events.size(), hookEvents.size()) << "seed " << seed;
        strip(root, paths);
        ASSERT_TRUE(root == expected) << "seed " << seed << "\n" << serialiseSettings(document);
    }
    EXPECT_GT(unlossy, documents / 4);
}

TEST(StripProperty, entriesOfOursBeforehandMakeNoDifference) {
    for (unsigned seed = 0; seed < documents; ++seed) {
        const auto document = Generator(seed).document(true);
        auto once = document;
        addEntries(once, paths);
        auto twice = once;
        addEntries(twice, paths);
        ASSERT_TRUE(once == twice) << "seed " << seed;
        // What is ours goes first, so that only what isn't can be lost.
        auto expected = document;
        strip(expected, paths);
        expected = withoutKnownLosses(expected);
        strip(once, paths);
        ASSERT_TRUE(once == expected) << "seed " << seed << "\n" << serialiseSettings(document);
        ASSERT_TRUE(findEntries(once, paths).events.empty());
    }
}

TEST(StripProperty, writtenTextReadsBackTheSame) {
    for (unsigned seed = 0; seed < documents; seed += 10) {
        auto document = Generator(seed).document(true);
        addEntries(document, paths);
        ASSERT_TRUE(parseSettings(serialiseSettings(document)) == document) << "seed " << seed;
    }
}

} // namespace

} // namespace mimkins::test
