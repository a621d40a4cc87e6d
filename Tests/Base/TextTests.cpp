#include "Base/DateText.h"
#include "Base/Json.h"
#include "Base/StableSeed.h"
#include "Base/Text.h"

#include <gtest/gtest.h>

#include <string>

using namespace mimkins;

TEST(Text, PrefixCountsCharactersNotBytes) {
    EXPECT_EQ(text::prefix("héllo", 2), "hé");
    EXPECT_EQ(text::prefix("e\u0301tude", 1), "e\u0301");
    EXPECT_EQ(text::prefix("👩‍👩‍👧 family", 1), "👩‍👩‍👧");
    EXPECT_EQ(text::prefix("abc", 5), "abc");
    EXPECT_EQ(text::prefix("", 5), "");
}

TEST(Text, RepairsInvalidSequences) {
    EXPECT_EQ(
        text::repairUtf8("a\xff"
                         "b"),
        "a\uFFFD"
        "b"
    );
    EXPECT_EQ(text::repairUtf8("fine é"), "fine é");
    EXPECT_FALSE(text::isValidUtf8("\xc3"));
}

TEST(Text, DashedKeepsLettersAndDigitsOnly) {
    EXPECT_EQ(text::dashed("/Users/me/my_app.old"), "-Users-me-my-app-old");
    EXPECT_EQ(text::dashed("/home/josé/a b"), "-home-josé-a-b");
    EXPECT_EQ(text::dashed("e\u0301"), "e\u0301");
    EXPECT_EQ(text::dashed("x👩‍👩‍👧y"), "x-y");
}

TEST(Text, SquashKeepsLettersMarksAndNumbers) {
    EXPECT_EQ(text::squash("Touch '/tmp/A b' && echo ½"), "touchtmpabecho½");
    EXPECT_EQ(text::squash("e\u0301"), "e\u0301");
}

TEST(Text, PathPieces) {
    EXPECT_EQ(text::lastPathComponent("/a/b/"), "b");
    EXPECT_EQ(text::lastPathComponent("/"), "/");
    EXPECT_EQ(text::lastPathComponent(""), "");
    EXPECT_EQ(text::pathExtension("x.json"), "json");
    EXPECT_EQ(text::pathExtension(".json"), "");
    EXPECT_EQ(text::pathExtension("x.JSON"), "JSON");
    EXPECT_EQ(text::pathExtension("x."), "");
}

TEST(Text, Iso8601) {
    const auto date = text::parseIso8601("2026-11-21T07:30:18.390Z");
    ASSERT_TRUE(date);
    EXPECT_NEAR(date->secondsSince1970, 1795246218.390, 1e-6);
    EXPECT_EQ(text::parseIso8601("2026-11-21T07:30:18Z")->secondsSince1970, 1795246218.0);
    EXPECT_EQ(text::parseIso8601("2026-11-21T09:30:18+02:00")->secondsSince1970, 1795246218.0);
    EXPECT_FALSE(text::parseIso8601("2026-02-30T00:00:00Z"));
    EXPECT_FALSE(text::parseIso8601("2026-11-21 07:30:18Z"));
    EXPECT_FALSE(text::parseIso8601("2026-11-21T07:30:18"));
    EXPECT_FALSE(text::parseIso8601(""));
    EXPECT_EQ(text::iso8601(Date{1795246218.9}), "2026-11-21T07:30:18Z");
    EXPECT_EQ(text::iso8601(Date{-0.5}), "1969-12-31T23:59:59Z");
}

TEST(StableSeed, MatchesValuesFromAnotherProgram) {
    EXPECT_EQ(stableSeed(""), 0xf52a15e9a9b5e89bU);
    EXPECT_EQ(stableSeed("a"), 0x2c0bdbf481420f8U);
    EXPECT_EQ(stableSeed("1c8daa90-88e5-4081-a7da-79023bf2a85c"), 0xd6d3c1101f0a7f0bU);
}

TEST(Json, CastsOnlyTheRightType) {
    const auto document =
        json::Document::parse(R"({"s":"x","n":1.5,"i":12.0,"b":true,"z":null,"s":"last","a":[1,2]})");
    ASSERT_TRUE(document);
    const auto root = document->root();
    EXPECT_EQ(root["s"].string(), "last");
    EXPECT_EQ(root["n"].number(), 1.5);
    EXPECT_EQ(root["n"].integer32(), std::nullopt);
    EXPECT_EQ(root["i"].integer32(), 12);
    EXPECT_EQ(root["b"].number(), std::nullopt);
    EXPECT_EQ(root["n"].boolean(), std::nullopt);
    EXPECT_TRUE(root["z"].exists());
    EXPECT_TRUE(root["z"].isNull());
    EXPECT_FALSE(root["missing"].exists());
    EXPECT_EQ(root["a"].elements().size(), 2U);
    EXPECT_EQ(root["a"]["key"].string(), std::nullopt);
}

TEST(Json, SurvivesHostileText) {
    EXPECT_FALSE(json::Document::parse(""));
    EXPECT_FALSE(json::Document::parse("{} {}"));
    EXPECT_FALSE(json::Document::parse(R"({"n":1e400})"));
    EXPECT_FALSE(json::Document::parse("{\"a\":\"\xff\"}"));
    EXPECT_FALSE(json::Document::parse(std::string(1'000'000, '[')));
    EXPECT_FALSE(json::Document::parse(std::string(1'000'000, '[') + std::string(1'000'000, ']')));
}
