#include "Base/BlankEscapes.h"
#include "Base/Json.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <memory>
#include <random>
#include <string>

using namespace mimkins;

TEST(JsonParser, ReadsOneTextAfterTheOther) {
    json::Parser parser;
    EXPECT_EQ(parser.parse(R"({"a":1})")["a"].integer32(), 1);
    EXPECT_FALSE(parser.parse(R"({"a":)").exists());
    EXPECT_EQ(parser.parse(R"(["x"])").elements().at(0).string(), "x");
    EXPECT_FALSE(parser.parse("").exists());
    EXPECT_FALSE(parser.parse("  ").exists());
    EXPECT_FALSE(parser.parse("{} {}").exists());
    EXPECT_FALSE(parser.parse("\"\xff\"").exists());
    EXPECT_EQ(parser.parse("12").integer32(), 12);
}

TEST(JsonParser, BytesBehindATextPlayNoPart) {
    const std::string buffer = R"({"a":12})" + std::string(R"(34,"b":5})") + std::string(64, '7');
    json::Parser parser;
    for (const std::size_t behind : {std::size_t{0}, std::size_t{63}, std::size_t{64}}) {
        const auto root = parser.parse(std::string_view(buffer).substr(0, 8), behind);
        EXPECT_EQ(root["a"].integer32(), 12);
        EXPECT_FALSE(root["b"].exists());
    }
    const std::string digits(80, '1');
    EXPECT_EQ(parser.parse(std::string_view(digits).substr(0, 2), 78).integer32(), 11);
    const std::string open = R"("never closed)" + std::string(70, '"');
    EXPECT_FALSE(parser.parse(std::string_view(open).substr(0, 13), 70).exists());
}

// The text stands alone at the end of its allocation, so that the address sanitizer sees a read behind it.
TEST(JsonParser, NothingBehindATextIsReadUnlessAllowed) {
    constexpr std::string_view text = R"({"key":"value"})";
    const auto exact = std::make_unique<char[]>(text.size());
    text.copy(exact.get(), text.size());
    json::Parser parser;
    EXPECT_EQ(parser.parse({exact.get(), text.size()})["key"].string(), "value");
}

RC_GTEST_PROP(JsonParser, AgreesWithADocumentOfItsOwn, (const std::vector<std::string>& pieces)) {
    json::Parser parser;
    for (const auto& piece : pieces) {
        const std::string text = "{\"k\":\"" + piece + "\"}";
        const std::string buffer = text + std::string(json::Parser::padding, '}');
        const auto document = json::Document::parse(text);
        const auto expected = document ? document->root()["k"].string() : std::nullopt;
        RC_ASSERT(parser.parse(text).exists() == document.has_value());
        RC_ASSERT(parser.parse(text)["k"].string() == expected);
        const auto inPlace = std::string_view(buffer).substr(0, text.size());
        RC_ASSERT(parser.parse(inPlace, json::Parser::padding)["k"].string() == expected);
    }
}

namespace {

/// Whether the processor blanks at all.
bool canBlank() {
    std::string copy(1, ' ');
    return json::blankEscapes("1", copy.data());
}

} // namespace

TEST(JsonParser, BlanksEscapesOfTwoCharacters) {
    if (!canBlank()) {
        GTEST_SKIP() << "this processor has no AVX2";
    }
    json::Parser parser;
    for (std::size_t shift = 0; shift < 80; ++shift) {
        const std::string before(shift, '.');
        const std::string after(40, '.');
        for (const char* sequence : {"\\\"", "\\\\", "\\/", "\\b", "\\f", "\\n", "\\r", "\\t"}) {
            const auto root = parser.parseBlanked("[\"" + before + sequence + after + "\"]");
            EXPECT_EQ(root.elements().at(0).string(), before + "\x7f\x7f" + after) << shift;
        }
        for (const char* other : {"\\u0041", "\\x", "\\", "\\\\\\u0041", "\\ "}) {
            EXPECT_FALSE(parser.parseBlanked("[\"" + before + other + after + "\"]").exists()) << shift;
        }
    }
    EXPECT_FALSE(parser.parseBlanked("[\"\\").exists());
    EXPECT_FALSE(parser.parseBlanked("").exists());
}

// Of a text with escapes of two characters alone, blanking changes the strings and nothing else.
TEST(JsonParser, ReadsWhatItBlanksOrNothing) {
    std::mt19937 random(7);
    json::Parser parser;
    json::Parser blanking;
    int readable = 0;
    for (int round = 0; round < 300'000; ++round) {
        std::string text;
        constexpr std::string_view pieces = "\\\\\\n\"bt/ur:,[]{}1 xyzxyzxyzxyzxyzxyzxyz\x7f";
        for (std::size_t count = random() % 90; count > 0; --count) {
            text += pieces[random() % pieces.size()];
        }
        text = random() % 4 == 0 ? text : "\"" + text + "\"";
        const auto plain = parser.parse(text);
        const auto blanked = blanking.parseBlanked(text);
        if (blanked.exists()) {
            ASSERT_TRUE(plain.exists()) << text;
            ASSERT_EQ(plain.type(), blanked.type()) << text;
            ++readable;
        } else if (canBlank()) {
            ASSERT_TRUE(!plain.exists() || text.find("\\u") != std::string::npos) << text;
        }
    }
    EXPECT_TRUE(readable > 1'000 || !canBlank()) << readable;
}
