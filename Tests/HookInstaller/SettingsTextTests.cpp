#include "HookInstaller/SettingsText.h"

#include "Base/Error.h"
#include "Support/RunProgram.h"
#include "Support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <string>

namespace mimkins::test {

namespace {

std::string rewritten(std::string_view text) {
    return serialiseSettings(parseSettings(text));
}

std::string complaint(std::string_view text) {
    try {
        parseSettings(text);
    } catch (const Error& error) {
        return error.what();
    }
    return "";
}

TEST(SettingsText, sortsKeysAndLeavesSlashes) {
    EXPECT_EQ(
        rewritten(R"({"b":[1,{}],"a":{"y":"/x\/z","x":null},"c":[],"d":[true,false]})"),
        "{\n  \"a\": {\n    \"x\": null,\n    \"y\": \"/x/z\"\n  },\n  \"b\": [\n    1,\n    {}\n  ],\n"
        "  \"c\": [],\n  \"d\": [\n    true,\n    false\n  ]\n}\n"
    );
    EXPECT_EQ(rewritten(" {} \n"), "{}\n");
}

TEST(SettingsText, keepsEveryDigit) {
    for (const std::string number :
         {"0", "-0", "1.0", "1e2", "1E+2", "1.50e-10", "12345678901234567890123", "-9223372036854775809",
          "18446744073709551616", "0.1000000000000000055511151231257827", "1e999", "-1e-999", "-0.0", "5"}) {
        EXPECT_EQ(
            rewritten("{\"n\":[" + number + "," + number + "]}"),
            "{\n  \"n\": [\n    " + number + ",\n    " + number + "\n  ]\n}\n"
        );
    }
}

TEST(SettingsText, keepsNumbersInALocaleWithDecimalCommas) {
    const TemporaryFolder locales;
    const auto made =
        runProgram({{"localedef", "-i", "de_DE", "-f", "UTF-8", locales / "de_DE.UTF-8"}, {}, "", ""});
    const char* before = ::getenv("LOCPATH");
    ::setenv("LOCPATH", locales.path().c_str(), 1);
    const bool german = std::setlocale(LC_NUMERIC, "de_DE.UTF-8") != nullptr;
    if (german) {
        EXPECT_STREQ(std::localeconv()->decimal_point, ",");
        EXPECT_EQ(rewritten(R"({"n":1.5})"), "{\n  \"n\": 1.5\n}\n");
    }
    std::setlocale(LC_NUMERIC, "C");
    before == nullptr ? ::unsetenv("LOCPATH") : ::setenv("LOCPATH", before, 1);
    if (!german) {
        GTEST_SKIP() << "the locale de_DE.UTF-8 can't be made: " << made.errors;
    }
}

TEST(SettingsText, leavesDigitsInStringsAlone) {
    const auto root = parseSettings(R"({"12":"-3.5 \"4\" \\","a\\":"5\\\\"})");
    EXPECT_EQ(*root.at("12").string(), "-3.5 \"4\" \\");
    EXPECT_EQ(*root.at("a\\").string(), "5\\\\");
}

TEST(SettingsText, keepsEveryKindOfText) {
    const std::string text = "{\n  \"k\": \"\\\"\\\\\\b\\f\\n\\r\\t\\u0001 \x7f é 𝄞 \xe2\x80\xa8 <&>\"\n}\n";
    EXPECT_EQ(rewritten(text), text);
    EXPECT_EQ(rewritten(R"({"k":"\u00e9\ud834\udd1e"})"), "{\n  \"k\": \"é𝄞\"\n}\n");
}

TEST(SettingsText, lastOfEqualKeysHolds) {
    EXPECT_EQ(rewritten(R"({"a":{"x":1},"a":{"y":2}})"), "{\n  \"a\": {\n    \"y\": 2\n  }\n}\n");
}

TEST(SettingsText, acceptsAByteOrderMark) {
    EXPECT_EQ(rewritten("\xef\xbb\xbf{}"), "{}\n");
}

TEST(SettingsText, refusesARootThatIsNoObject) {
    for (const std::string_view text : {"[]", "1", "null", "\"{}\"", "true"}) {
        try {
            parseSettings(text);
            ADD_FAILURE() << text;
        } catch (const Error& error) {
            EXPECT_EQ(error.domain(), Error::ownDomain);
            EXPECT_EQ(error.code(), 1);
            EXPECT_STREQ(error.what(), "settings.json isn't a JSON object, so it was left alone.");
        }
    }
}

TEST(SettingsText, refusesWhatIsNotJson) {
    const std::string withNul("{}\0{}", 5);
    for (const std::string_view text : {
             std::string_view(""),
             std::string_view("{"),
             std::string_view("{\"a\":1,}"),
             std::string_view("{\"a\":01}"),
             std::string_view("{\"a\":1.}"),
             std::string_view("{\"a\":.5}"),
             std::string_view("{\"a\":-}"),
             std::string_view("{\"a\":1e}"),
             std::string_view("{\"a\":1 2}"),
             std::string_view("{\"a\":12x}"),
             std::string_view("{\"a\":true1}"),
             std::string_view("{\"a\":+1}"),
             std::string_view("{\"a\":1.5.3}"),
             std::string_view("{} {}"),
             std::string_view("{'a':1}"),
             std::string_view("{\"a\":1} // note"),
             std::string_view("{\"a\":NaN}"),
             std::string_view("{1:2}"),
             std::string_view("{\"a\":\"\\ud800\"}"),
             std::string_view("{\"a\":\"\n\"}"),
             std::string_view("{\"a\":\"\\"),
             std::string_view(withNul),
         }) {
        EXPECT_THAT(complaint(text), ::testing::StartsWith("settings.json isn't valid JSON: ")) << text;
    }
}

TEST(SettingsText, saysWhereTheMistakeIs) {
    EXPECT_EQ(
        complaint("{\n  \"a\": 12345,\n  b\n}"),
        "settings.json isn't valid JSON: parse error at line 3, column 3: syntax error while parsing object "
        "key - invalid literal"
    );
}

TEST(SettingsText, refusesInvalidUtf8) {
    EXPECT_EQ(
        complaint("{\"a\":\"\xff\"}"),
        "settings.json isn't valid JSON: parse error at line 1, column 7: syntax error while parsing value - "
        "invalid string: ill-formed UTF-8 byte"
    );
    EXPECT_NE(complaint("{\"a\":\"\xed\xa0\x80\"}"), "");
    EXPECT_NE(complaint("{\"\xc3\":1}"), "");
    EXPECT_NE(complaint("\xff{}"), "");
}

TEST(SettingsText, refusesDeepNestingWithoutRunningOutOfStack) {
    constexpr std::size_t million = 1'000'000;
    const std::string words = "settings.json is nested deeper than 512 levels, so it was left alone.";
    EXPECT_EQ(complaint(std::string(million, '[')), words);
    std::string objects;
    for (std::size_t level = 0; level < million; ++level) {
        objects += "{\"a\":";
    }
    EXPECT_EQ(complaint(objects), words);
}

TEST(SettingsText, acceptsTheDeepestNesting) {
    const std::string open(deepestSettings - 1, '[');
    const std::string close(deepestSettings - 1, ']');
    const std::string text = rewritten("{\"a\":" + open + close + "}");
    EXPECT_EQ(rewritten(text), text);
    EXPECT_NE(complaint("{\"a\":[" + open + close + "]}"), "");
}

} // namespace

} // namespace mimkins::test
