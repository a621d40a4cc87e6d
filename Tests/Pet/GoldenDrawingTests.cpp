/// Pets at fixed moments, drawn as they were when somebody last looked at them. After a change that is meant,
///
///     MIMKINS_REWRITE_GOLDEN=1 build/debug/Tests/test_Pet --gtest_filter='*Golden*'
///
/// writes them anew, and `Tests/Data/pet/golden-sheet` shows them as pictures.

#include "Motion.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace mimkins::test {

namespace {

const std::filesystem::path folder = MIMKINS_SOURCE_DIR "/Tests/Data/pet";

/// One line of golden.json.
struct Golden {
    std::string name;
    PetAction action = PetAction::idle;
    PetFrame frame;
};

std::ostream& operator<<(std::ostream& out, const Golden& golden) {
    return out << golden.name;
}

Golden goldenFrom(const nlohmann::json& line) {
    Golden golden;
    golden.name = line.at("name").get<std::string>();
    golden.action = petActionNamed(line.at("action").get<std::string>()).value();
    const Date date{animationReference + line.at("clock").get<double>()};
    const Pet pet{
        golden.action, line.at("seed").get<std::uint64_t>(), date - line.at("elapsed").get<double>(),
        line.at("effort").get<int>(), line.at("waiting").get<bool>()};
    golden.frame = petFrame(pet, {}, date);
    return golden;
}

std::vector<Golden> allGolden() {
    std::ifstream file(folder / "golden.json");
    std::vector<Golden> all;
    for (const nlohmann::json& line : nlohmann::json::parse(file)) {
        all.push_back(goldenFrom(line));
    }
    return all;
}

std::string contents(const std::filesystem::path& path) {
    std::ifstream file(path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::vector<std::string> lines(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> all;
    for (std::string line; std::getline(stream, line);) {
        all.push_back(line);
    }
    return all;
}

/// The first line that differs, both ways.
std::string firstDifference(const std::string& expected, const std::string& found) {
    const auto left = lines(expected);
    const auto right = lines(found);
    for (std::size_t index = 0; index < std::max(left.size(), right.size()); ++index) {
        const std::string was = index < left.size() ? left[index] : "(nothing)";
        const std::string is = index < right.size() ? right[index] : "(nothing)";
        if (was != is) {
            return "line " + std::to_string(index + 1) + "\nwas " + was + "\nis  " + is;
        }
    }
    return "none";
}

class GoldenDrawing : public testing::TestWithParam<Golden> {};

TEST_P(GoldenDrawing, IsDrawnAsBefore) {
    const std::filesystem::path path = folder / "golden" / (GetParam().name + ".json");
    RecordingCanvas canvas;
    PetPainter(GraphicsContext(canvas), 100, 100, GetParam().frame).draw(GetParam().action);
    const std::string found = canvas.toJson();
    if (std::getenv("MIMKINS_REWRITE_GOLDEN")) {
        std::ofstream(path) << found;
        GTEST_SKIP() << "written anew";
    }
    const std::string expected = contents(path);
    EXPECT_TRUE(found == expected) << path << ", first difference: " << firstDifference(expected, found);
}

INSTANTIATE_TEST_SUITE_P(All, GoldenDrawing, testing::ValuesIn(allGolden()), [](const auto& golden) {
    std::string name = golden.param.name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

TEST(GoldenDrawings, ShowEveryAction) {
    std::vector<bool> shown(petActionCount);
    for (const Golden& golden : allGolden()) {
        shown[static_cast<std::size_t>(golden.action)] = true;
    }
    for (std::size_t index = 0; index < petActionCount; ++index) {
        EXPECT_TRUE(shown[index]) << name(static_cast<PetAction>(index));
    }
}

TEST(GoldenDrawings, HaveNoFileTooMany) {
    if (std::getenv("MIMKINS_REWRITE_GOLDEN")) {
        GTEST_SKIP() << "perhaps not yet written";
    }
    std::vector<std::string> expected;
    for (const Golden& golden : allGolden()) {
        expected.push_back(golden.name + ".json");
    }
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(folder / "golden")) {
        found.push_back(entry.path().filename());
    }
    std::sort(expected.begin(), expected.end());
    std::sort(found.begin(), found.end());
    EXPECT_EQ(found, expected);
}

} // namespace

} // namespace mimkins::test
