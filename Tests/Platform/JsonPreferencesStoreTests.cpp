#include "Platform/Linux/JsonPreferencesStore.h"

#include "Base/Log.h"
#include "Support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <limits>
#include <set>
#include <string>
#include <vector>

using namespace mimkins;
using testing::ElementsAre;
using testing::IsEmpty;
using Tree = nlohmann::json;
using Value = PreferencesStore::Value;

namespace {

class JsonPreferencesStoreTest : public testing::Test {
protected:
    JsonPreferencesStoreTest() {
        log::setSink([this](const log::Line& line) { logged.emplace_back(line.text); });
    }

    ~JsonPreferencesStoreTest() override { log::setSink(nullptr); }

    JsonPreferencesStoreTest(const JsonPreferencesStoreTest&) = delete;
    JsonPreferencesStoreTest& operator=(const JsonPreferencesStoreTest&) = delete;

    JsonPreferencesStore open() const { return JsonPreferencesStore(folder, "app.mimkins"); }

    Tree inFile() const { return Tree::parse(test::readWhole(path)); }

    std::set<std::string> names() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            names.insert(entry.path().filename());
        }
        return names;
    }

    mode_t mode() const {
        struct stat facts {};

        EXPECT_EQ(::stat(path.c_str(), &facts), 0);
        return facts.st_mode & 07777;
    }

    test::TemporaryFolder temporary;
    std::string folder = temporary / ".config/mimkins";
    std::string path = folder + "/app.mimkins.json";
    std::vector<std::string> logged;
};

} // namespace

TEST_F(JsonPreferencesStoreTest, NothingIsWrittenUntilSomethingIsSet) {
    auto store = open();
    EXPECT_EQ(store.value("chirp"), std::nullopt);
    store.remove("chirp");
    EXPECT_FALSE(std::filesystem::exists(temporary / ".config"));
    store.set("chirp", true);
    EXPECT_EQ(inFile(), Tree({{"chirp", true}}));
    EXPECT_THAT(names(), ElementsAre("app.mimkins.json"));
    EXPECT_EQ(mode(), 0600U);
    EXPECT_THAT(logged, IsEmpty());
}

TEST_F(JsonPreferencesStoreTest, TypesSurviveARestart) {
    const std::vector<Value> values{
        true,
        false,
        std::int64_t{0},
        std::int64_t{1},
        std::numeric_limits<std::int64_t>::min(),
        std::numeric_limits<std::int64_t>::max(),
        0.0,
        1.0,
        30.0,
        0.1,
        -1e300,
        5e-324,
        std::string(),
        std::string("true"),
        std::string("30"),
        std::string("\"quoted\"\n\\ é 🐣 \0 end", 24),
    };
    {
        auto store = open();
        for (std::size_t number = 0; number < values.size(); ++number) {
            store.set("key" + std::to_string(number), values[number]);
        }
    }
    const auto store = open();
    for (std::size_t number = 0; number < values.size(); ++number) {
        EXPECT_EQ(store.value("key" + std::to_string(number)), values[number]) << number;
    }
}

TEST_F(JsonPreferencesStoreTest, ValueIsThereAtOnceAndRemovableAgain) {
    auto store = open();
    store.set("shuffle", std::int64_t{3});
    store.set("chirp", false);
    EXPECT_EQ(store.value("shuffle"), Value(std::int64_t{3}));
    store.remove("shuffle");
    EXPECT_EQ(store.value("shuffle"), std::nullopt);
    EXPECT_EQ(inFile(), Tree({{"chirp", false}}));
}

TEST_F(JsonPreferencesStoreTest, UnknownKeysAndTypesSurviveEveryWrite) {
    const Tree before = Tree::parse(R"({"list": [1, [2.0, null]], "nested": {"a": {"b": true}}, "none": null,
        "big": 18446744073709551615, "": "empty key", "exact": 0.1})");
    test::writeFile(path, before.dump());
    auto store = open();
    for (const char* key : {"list", "nested", "none", "big"}) {
        EXPECT_EQ(store.value(key), std::nullopt) << key;
    }
    EXPECT_EQ(store.value(""), Value("empty key"));
    store.set("chirp", true);
    store.set("chirp", false);
    store.remove("chirp");
    EXPECT_EQ(inFile().dump(), before.dump());
    store.set("list", "now ours");
    EXPECT_EQ(inFile()["list"], "now ours");
}

TEST_F(JsonPreferencesStoreTest, WhatAnotherProcessSetMeanwhileSurvives) {
    auto one = open();
    auto other = open();
    one.set("chirp", true);
    other.set("antics", false);
    one.set("shuffle", std::int64_t{1});
    EXPECT_EQ(inFile(), Tree({{"chirp", true}, {"antics", false}, {"shuffle", 1}}));
}

TEST_F(JsonPreferencesStoreTest, BrokenFileCountsAsEmptyAndIsSetAsideByTheFirstWrite) {
    std::string deep(2'000, '[');
    const std::vector<std::string> broken{
        "{\"chirp\": true", "[1, 2]",       "\"text\"",        "{\"chirp\": true} more",
        "\xff\xfe{}",       "{\"a\": nan}", "{\"a\": " + deep, std::string("\0\0\0\0", 4),
    };
    int number = 0;
    for (const auto& text : broken) {
        test::writeFile(path, text);
        auto store = open();
        EXPECT_EQ(store.value("chirp"), std::nullopt) << text;
        EXPECT_EQ(test::readWhole(path), text);
        store.set("antics", false);
        EXPECT_EQ(inFile(), Tree({{"antics", false}})) << text;
        ++number;
        const std::string aside = path + ".broken" + (number == 1 ? "" : "-" + std::to_string(number));
        EXPECT_EQ(test::readWhole(aside), text);
    }
    EXPECT_EQ(names().size(), broken.size() + 1);
    EXPECT_FALSE(logged.empty());
}

TEST_F(JsonPreferencesStoreTest, FileThatBreaksMeanwhileCostsNothingThatWasRead) {
    test::writeFile(path, R"({"chirp": true, "later": [1]})");
    auto store = open();
    test::writeFile(path, "{");
    store.set("antics", false);
    EXPECT_EQ(inFile(), Tree::parse(R"({"chirp": true, "later": [1], "antics": false})"));
    EXPECT_EQ(test::readWhole(path + ".broken"), "{");
}

TEST_F(JsonPreferencesStoreTest, EmptyFileIsNotBroken) {
    test::writeFile(path, " \n");
    auto store = open();
    store.set("chirp", true);
    EXPECT_THAT(names(), ElementsAre("app.mimkins.json"));
    EXPECT_THAT(logged, IsEmpty());
}

TEST_F(JsonPreferencesStoreTest, FolderInTheFilesPlaceIsSetAside) {
    test::writeFile(path + "/inside", "kept");
    auto store = open();
    EXPECT_EQ(store.value("chirp"), std::nullopt);
    store.set("chirp", true);
    EXPECT_EQ(inFile(), Tree({{"chirp", true}}));
    EXPECT_EQ(test::readWhole(path + ".broken/inside"), "kept");
}

TEST_F(JsonPreferencesStoreTest, FailureToWriteIsLoggedAndMadeGoodByTheNextWrite) {
    test::writeFile(temporary / ".config", "in the way");
    auto store = open();
    store.set("chirp", true);
    store.set("antics", false);
    store.remove("antics");
    EXPECT_EQ(store.value("chirp"), Value(true));
    EXPECT_EQ(logged.size(), 3U);
    std::filesystem::remove(temporary / ".config");
    store.set("shuffle", std::int64_t{2});
    EXPECT_EQ(inFile(), Tree({{"chirp", true}, {"shuffle", 2}}));
}

TEST_F(JsonPreferencesStoreTest, SameValueIsNotWrittenAgain) {
    auto store = open();
    store.set("chirp", true);

    struct stat before {};

    ASSERT_EQ(::stat(path.c_str(), &before), 0);
    // Keeps the number of the old file from being used for a new one.
    const int held = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    store.set("chirp", true);

    struct stat after {};

    ASSERT_EQ(::stat(path.c_str(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino);
    store.set("chirp", false);
    ASSERT_EQ(::stat(path.c_str(), &after), 0);
    EXPECT_NE(after.st_ino, before.st_ino);
    ::close(held);
}

TEST_F(JsonPreferencesStoreTest, LinksAndAccessRightsOfTheFileSurvive) {
    const std::string real = temporary / "dotfiles/mimkins.json";
    test::writeFile(real, R"({"chirp": true})");
    ::chmod(real.c_str(), 0644);
    std::filesystem::create_directories(folder);
    std::filesystem::create_symlink(real, path);
    auto store = open();
    store.set("antics", false);
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_EQ(Tree::parse(test::readWhole(real)), Tree({{"antics", false}, {"chirp", true}}));
    EXPECT_EQ(mode(), 0644U);
}

TEST_F(JsonPreferencesStoreTest, TextIsRepairedAndNumbersThatJsonLacksCountAsMissing) {
    auto store = open();
    store.set("text", "a\xff");
    store.set("number", std::numeric_limits<double>::infinity());
    EXPECT_EQ(store.value("text"), Value("a\uFFFD"));
    EXPECT_EQ(store.value("number"), std::nullopt);
    EXPECT_EQ(open().value("text"), Value("a\uFFFD"));
    EXPECT_EQ(open().value("number"), std::nullopt);
}

TEST_F(JsonPreferencesStoreTest, RemoveAllTakesTheFileAndAnEmptyFolder) {
    auto store = open();
    store.set("chirp", true);
    store.removeAll();
    EXPECT_EQ(store.value("chirp"), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(folder));
    store.removeAll();
    EXPECT_THAT(logged, IsEmpty());
    store.set("antics", true);
    EXPECT_EQ(inFile(), Tree({{"antics", true}}));
}

TEST_F(JsonPreferencesStoreTest, DomainsAreApart) {
    auto ours = open();
    JsonPreferencesStore other(folder, "local.other");
    ours.set("chirp", true);
    other.set("chirp", false);
    ours.removeAll();
    EXPECT_EQ(JsonPreferencesStore(folder, "local.other").value("chirp"), Value(false));
    EXPECT_THAT(names(), ElementsAre("local.other.json"));
}
