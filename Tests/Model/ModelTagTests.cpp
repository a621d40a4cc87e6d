#include "Model/ModelTag.h"

#include <gtest/gtest.h>

using namespace mimkins;

namespace {

std::optional<ModelTag::Parts> partsOf(const std::string& model) {
    return ModelTag{model, std::nullopt}.parts();
}

} // namespace

TEST(ModelTag, Parts) {
    using Family = ModelTag::Family;
    using Parts = ModelTag::Parts;
    EXPECT_EQ(partsOf("claude-opus-4-5-20251101[1m]"), (Parts{Family::opus, "Opus 4.5"}));
    EXPECT_EQ(partsOf("claude-3-5-haiku-latest"), (Parts{Family::haiku, "Haiku 3.5"}));
    EXPECT_EQ(partsOf("claude-sonnet-4-20250514"), (Parts{Family::sonnet, "Sonnet 4"}));
    EXPECT_EQ(partsOf("Claude-Fable"), (Parts{Family::fable, "Fable"}));
    EXPECT_EQ(partsOf("opus"), (Parts{Family::opus, "Opus"}));
    EXPECT_EQ(partsOf("gpt-5-codex"), (Parts{std::nullopt, "gpt-5-codex"}));
    EXPECT_EQ(partsOf("GPT-5-Codex"), (Parts{std::nullopt, "GPT-5-Codex"}));
    EXPECT_EQ(partsOf("123456789012345678901234567890"), (Parts{std::nullopt, "123456789012345678901234"}));
    EXPECT_EQ(partsOf("<synthetic>"), std::nullopt);
    EXPECT_EQ(partsOf("<SYNTHETIC>"), std::nullopt);
    EXPECT_EQ(partsOf(""), std::nullopt);
    EXPECT_EQ(ModelTag{}.parts(), std::nullopt);
}

TEST(ModelTag, Pips) {
    const auto pips = [](const char* effort) { return ModelTag{std::nullopt, effort}.pips(); };
    EXPECT_EQ(pips("low"), 1);
    EXPECT_EQ(pips("Medium"), 2);
    EXPECT_EQ(pips("high"), 3);
    EXPECT_EQ(pips("xhigh"), 4);
    EXPECT_EQ(pips("extra-high"), 4);
    EXPECT_EQ(pips("extra_high"), 4);
    EXPECT_EQ(pips("max"), 5);
    EXPECT_EQ(pips("ULTRA"), 5);
    EXPECT_EQ(pips("hardest"), 0);
    EXPECT_EQ(ModelTag{}.pips(), 0);
}

TEST(ModelTag, Summary) {
    EXPECT_EQ((ModelTag{"claude-opus-4-5", "high"}.summary()), "Opus 4.5 (claude-opus-4-5), effort high");
    EXPECT_EQ((ModelTag{std::nullopt, "high"}.summary()), "effort high");
    EXPECT_EQ((ModelTag{"<synthetic>", std::nullopt}.summary()), "");
}
