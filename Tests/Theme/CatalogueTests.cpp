#include "Theme/PetTheme.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <fstream>
#include <map>

namespace mimkins::test {

namespace {

using nlohmann::json;

json table() {
    std::ifstream file(MIMKINS_SOURCE_DIR "/Tests/Data/themes.json");
    return json::parse(file);
}

NamedColor named(const std::string& name) {
    static const std::map<std::string, NamedColor> names{
        {"primary", NamedColor::primary}, {"secondary", NamedColor::secondary},
        {"blue", NamedColor::blue},       {"green", NamedColor::green},
        {"yellow", NamedColor::yellow},   {"orange", NamedColor::orange},
        {"pink", NamedColor::pink},       {"gray", NamedColor::gray},
    };
    return names.at(name);
}

Color color(const json& value) {
    if (value.contains("name")) {
        return Color::named(named(value["name"]), value["opacity"]);
    }
    return {value["red"], value["green"], value["blue"], value["opacity"]};
}

std::vector<Color> colors(const json& values) {
    std::vector<Color> result;
    for (const json& value : values) {
        result.push_back(color(value));
    }
    return result;
}

template <typename Enumeration>
Enumeration entry(const std::string& name, const std::vector<std::string>& names) {
    return static_cast<Enumeration>(std::find(names.begin(), names.end(), name) - names.begin());
}

class Catalogue : public testing::TestWithParam<std::size_t> {
protected:
    json row = table().at(GetParam());
    const PetTheme& theme = PetTheme::all().at(GetParam());
};

TEST_P(Catalogue, Words) {
    EXPECT_EQ(theme.id, row["id"].get<std::string>());
    EXPECT_EQ(theme.name, row["name"].get<std::string>());
    EXPECT_EQ(theme.blurb, row["blurb"].get<std::string>());
}

TEST_P(Catalogue, Surface) {
    if (row["scheme"].is_null()) {
        EXPECT_FALSE(theme.scheme);
    } else {
        EXPECT_EQ(theme.scheme, entry<ColorScheme>(row["scheme"], {"light", "dark"}));
    }
    EXPECT_EQ(theme.font, entry<FontDesign>(row["font"], {"default", "rounded", "serif", "monospaced"}));
    EXPECT_EQ(theme.texture, entry<Texture>(row["texture"], {"none", "dots", "ruled", "scanlines", "grid"}));
    EXPECT_EQ(
        theme.particles, entry<Particles>(row["particles"], {"none", "sparks", "fireflies", "bubbles"})
    );
    EXPECT_EQ(theme.sky, colors(row["sky"]));
    EXPECT_EQ(theme.particleColors, colors(row["particleColors"]));
    ASSERT_EQ(theme.glows.size(), row["glows"].size());
    for (std::size_t index = 0; index < theme.glows.size(); ++index) {
        const json& glow = row["glows"][index];
        EXPECT_EQ(theme.glows[index].color, color(glow["color"]));
        EXPECT_EQ(theme.glows[index].center, (Point{glow["center"][0], glow["center"][1]}));
        EXPECT_EQ(theme.glows[index].radius, glow["radius"].get<double>());
    }
}

TEST_P(Catalogue, Border) {
    EXPECT_EQ(theme.border, colors(row["border"]));
    EXPECT_EQ(theme.borderTravels, row["borderTravels"].get<bool>());
    EXPECT_EQ(theme.borderWidth, row["borderWidth"].get<double>());
    EXPECT_EQ(theme.borderDash, row["borderDash"].get<std::vector<double>>());
    EXPECT_EQ(theme.title, colors(row["title"]));
    EXPECT_EQ(theme.cog, colors(row["cog"]));
}

TEST_P(Catalogue, Cards) {
    EXPECT_EQ(theme.text, color(row["text"]));
    EXPECT_EQ(theme.subtext, color(row["subtext"]));
    EXPECT_EQ(theme.cardBase, color(row["cardBase"]));
    EXPECT_EQ(theme.cardShadow, color(row["cardShadow"]));
    EXPECT_EQ(theme.cardTint, row["cardTint"].get<double>());
    EXPECT_EQ(theme.cardStroke, row["cardStroke"].get<double>());
    EXPECT_EQ(theme.radius, row["radius"].get<double>());
    EXPECT_EQ(theme.stripe, row["stripe"].get<bool>());
    EXPECT_EQ(theme.pad, row["pad"].get<bool>());
}

TEST_P(Catalogue, StatesAndPets) {
    EXPECT_EQ(theme.working, color(row["working"]));
    EXPECT_EQ(theme.waiting, color(row["waiting"]));
    EXPECT_EQ(theme.question, color(row["question"]));
    EXPECT_EQ(theme.yourTurn, color(row["yourTurn"]));
    EXPECT_EQ(theme.quiet, color(row["quiet"]));
    EXPECT_EQ(theme.snag, color(row["snag"]));
    EXPECT_EQ(theme.petHue.has_value(), !row["petHue"].is_null());
    if (theme.petHue) {
        EXPECT_EQ(*theme.petHue, row["petHue"].get<double>());
    }
    EXPECT_EQ(theme.petSaturation, row["petSaturation"].get<double>());
    EXPECT_EQ(theme.petBrightness, row["petBrightness"].get<double>());
    EXPECT_EQ(theme.petOutline.has_value(), !row["petOutline"].is_null());
    if (theme.petOutline) {
        EXPECT_EQ(*theme.petOutline, color(row["petOutline"]));
    }
}

INSTANTIATE_TEST_SUITE_P(Themes, Catalogue, testing::Range(std::size_t{0}, std::size_t{10}));

TEST(PetTheme, ThereAreTen) {
    EXPECT_EQ(table().size(), 10U);
    EXPECT_EQ(PetTheme::all().size(), 10U);
}

TEST(PetTheme, UnknownIdsGiveTheNight) {
    for (const std::string_view id : {"", "Night", "nightSky", "no such theme"}) {
        EXPECT_EQ(PetTheme::named(id).id, "night");
    }
    EXPECT_EQ(PetTheme::nightSky(), PetTheme::named("night"));
}

TEST(PetTheme, OnlyTheClassicFollowsTheSystem) {
    for (const PetTheme& theme : PetTheme::all()) {
        const bool isClassic = theme.id == "classic";
        EXPECT_EQ(!theme.scheme, isClassic) << theme.id;
        EXPECT_EQ(theme.sky.empty(), isClassic) << theme.id;
        EXPECT_EQ(theme.schemeUnder(ColorScheme::light), theme.scheme.value_or(ColorScheme::light));
        EXPECT_EQ(theme.schemeUnder(ColorScheme::dark), theme.scheme.value_or(ColorScheme::dark));
    }
    EXPECT_EQ(PetTheme::named("classic").cardBase.opacity, 0);
}

TEST(PetTheme, OnlyTheTerminalFixesTheHueAndOnlyPaperHasAnOutline) {
    for (const PetTheme& theme : PetTheme::all()) {
        EXPECT_EQ(theme.petHue.has_value(), theme.id == "terminal") << theme.id;
        EXPECT_EQ(theme.petOutline.has_value(), theme.id == "paper") << theme.id;
    }
}

TEST(PetTheme, ColoursThatAreSharedStayShared) {
    const PetTheme& terminal = PetTheme::named("terminal");
    EXPECT_EQ(terminal.waiting, terminal.snag);
    for (const std::string_view id : {"terminal", "paper"}) {
        const PetTheme& theme = PetTheme::named(id);
        Color strong = theme.subtext;
        strong.opacity = 1;
        EXPECT_EQ(strong, theme.text) << id;
    }
}

TEST(PetTheme, TravellingBordersHaveNoSeam) {
    for (const PetTheme& theme : PetTheme::all()) {
        if (theme.borderTravels) {
            EXPECT_EQ(theme.border.front(), theme.border.back()) << theme.id;
        }
    }
}

TEST(PetTheme, ResolvingLeavesNoNamedColour) {
    const PetTheme& classic = PetTheme::named("classic");
    const PetTheme light = classic.resolved(ColorScheme::light);
    const PetTheme dark = classic.resolved(ColorScheme::dark);
    EXPECT_EQ(light.text.name, NamedColor::none);
    EXPECT_EQ(light.title.front().name, NamedColor::none);
    EXPECT_LT(light.text.red, 0.5);
    EXPECT_GT(dark.text.red, 0.5);
    EXPECT_NE(light.working, dark.working);
    const PetTheme night = PetTheme::nightSky().resolved(ColorScheme::light);
    EXPECT_EQ(night.working, PetTheme::nightSky().working);
}

} // namespace

} // namespace mimkins::test
