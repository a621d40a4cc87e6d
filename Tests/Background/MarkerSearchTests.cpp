#include "Background/MarkerSearch.h"
#include "Background/RandomTranscript.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace mimkins;

namespace {

std::vector<MarkerHit> plainSearch(std::string_view bytes) {
    std::vector<MarkerHit> hits;
    for (std::size_t position = 0; position < bytes.size(); ++position) {
        for (std::size_t marker = 0; marker < markerBytes.size(); ++marker) {
            if (bytes.substr(position).starts_with(markerBytes.at(marker))) {
                hits.push_back({position, static_cast<Marker>(marker)});
            }
        }
    }
    return hits;
}

struct Variant {
    const char* name;
    MarkerSearch search;
};

void PrintTo(const Variant& variant, std::ostream* stream) {
    *stream << variant.name;
}

class MarkerSearchTest : public testing::TestWithParam<Variant> {
protected:
    void SetUp() override {
        if (GetParam().search == &findMarkersWithAvx2 && !processorHasAvx2()) {
            GTEST_SKIP() << "This processor has no AVX2: the search with it is not tested here.";
        }
    }

    static std::vector<MarkerHit> search(std::string_view bytes) {
        std::vector<MarkerHit> hits;
        GetParam().search(bytes, hits);
        return hits;
    }
};

INSTANTIATE_TEST_SUITE_P(
    Variants, MarkerSearchTest,
    testing::Values(Variant{"portable", &findMarkersPortably}, Variant{"avx2", &findMarkersWithAvx2}),
    [](const auto& variant) { return std::string(variant.param.name); }
);

} // namespace

TEST_P(MarkerSearchTest, FindsEachMarkerAtEachPlace) {
    for (std::size_t marker = 0; marker < markerBytes.size(); ++marker) {
        for (std::size_t position = 0; position < 140; ++position) {
            for (const std::size_t tail : {0U, 1U, 31U, 64U, 100U}) {
                std::string bytes(position, 'k');
                bytes.append(markerBytes.at(marker)).append(tail, 'l');
                const std::vector<MarkerHit> expected{{position, static_cast<Marker>(marker)}};
                ASSERT_EQ(search(bytes), expected) << markerBytes.at(marker) << " at " << position;
            }
        }
    }
}

TEST_P(MarkerSearchTest, IgnoresMarkersThatAreNotWhole) {
    for (const auto marker : markerBytes) {
        for (std::size_t position = 0; position < 70; ++position) {
            const std::string filler(position, '.');
            EXPECT_TRUE(search(filler + std::string(marker.substr(1))).empty());
            EXPECT_TRUE(search(filler + std::string(marker.substr(0, marker.size() - 1))).empty());
            std::string broken(marker);
            broken[position % broken.size()] = '\x7f';
            EXPECT_TRUE(search(filler + broken + std::string(80, '.')).empty());
        }
    }
}

TEST_P(MarkerSearchTest, TakesNoByteAbove127ForOneOfAMarker) {
    for (const auto marker : markerBytes) {
        std::string bytes(marker);
        for (auto& byte : bytes) {
            byte = static_cast<char>(static_cast<unsigned char>(byte) | 0x80U);
        }
        EXPECT_TRUE(search(bytes + std::string(100, '\xee') + bytes).empty());
    }
}

TEST_P(MarkerSearchTest, NeverLooksBeyondTheEnd) {
    for (const auto marker : markerBytes) {
        const std::string text = std::string(100, ' ') + std::string(marker);
        for (std::size_t size = 0; size <= text.size(); ++size) {
            // A buffer of just this size, so that the address sanitizer notices a step too far.
            const std::vector<char> exact(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(size));
            const auto hits = search({exact.data(), exact.size()});
            EXPECT_EQ(hits.size(), size == text.size() ? 1U : 0U);
        }
    }
}

TEST_P(MarkerSearchTest, AgreesWithAPlainSearchOnRandomText) {
    std::mt19937 random(7);
    for (int round = 0; round < 4'000; ++round) {
        const std::string text = test::randomTranscript(random, random() % 60);
        ASSERT_EQ(search(text), plainSearch(text)) << text;
    }
}

TEST_P(MarkerSearchTest, KeepsTheHitsThatAreThere) {
    std::vector<MarkerHit> hits{{5, Marker::taskId}};
    GetParam().search("KillBash", hits);
    EXPECT_EQ(hits, (std::vector<MarkerHit>{{5, Marker::taskId}, {0, Marker::killBash}}));
}

TEST(MarkerSearch, ChoosesTheFastestThatTheProcessorRuns) {
    EXPECT_EQ(fastestMarkerSearch() == &findMarkersWithAvx2, processorHasAvx2());
}
