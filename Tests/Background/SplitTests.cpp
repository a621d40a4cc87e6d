#include "Background/BackgroundScanner.h"
#include "Background/MemoryFiles.h"
#include "Background/NaiveScanner.h"
#include "Background/RandomTranscript.h"
#include "Background/SharedOptions.h"
#include "Base/DateText.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <cstdlib>

using namespace mimkins;

namespace {

const std::string path = "/t.jsonl";
const Date now{1'795'248'000};

class Splits : public testing::Test {
protected:
    void SetUp() override { ::setenv("TZ", "UTC", 1); }
};

/// Blocks of any size, either search, and now and then two threads.
BackgroundScanner::Options randomOptions(std::mt19937& random) {
    BackgroundScanner::Options options;
    options.blockSize = 1 + random() % 150;
    options.search = random() % 2 == 0 ? &findMarkersPortably : &findMarkersWithAvx2;
    return random() % 20 == 0 ? test::sharing(options) : options;
}

} // namespace

TEST_F(Splits, AMillionSplitsGiveTheTallyOfTheWhole) {
    std::mt19937 random(1);
    constexpr int wanted = 1'000'000;
    std::size_t marked = 0;
    for (int splits = 0; splits < wanted;) {
        const std::string whole = test::randomTranscript(random, 20 + random() % 30) + "\n";
        test::MemoryFiles files;
        files.write(path, "");
        BackgroundScanner scanner(files, randomOptions(random));
        for (std::size_t position = 0; position < whole.size(); ++splits) {
            const std::size_t step = 1 + random() % 40;
            files.append(path, std::string_view(whole).substr(position, step));
            position += step;
            scanner.scan(path, now, now);
        }
        const Tally expected = test::naiveTally(whole, now);
        ASSERT_EQ(scanner.tallies().at(path), expected) << whole;
        marked += expected.started.size() + expected.finished.size() + expected.crons.size() +
                  expected.prompts.size() + expected.deletedCrons.size();
    }
    EXPECT_GT(marked, 50'000U); // The files do hold what there is to find.
}

TEST_F(Splits, EveryStepOfAChangingFileIsReadLikePlainly) {
    std::mt19937 random(2);
    for (int round = 0; round < 4'000; ++round) {
        auto options = randomOptions(random);
        options.firstReadingLimit = random() % 3 == 0 ? 1 + random() % 400 : 6'000'000;
        test::MemoryFiles files;
        BackgroundScanner scanner(files, options);
        const test::NaiveScanner naive(options.firstReadingLimit);
        Tally expected;
        std::string file;
        for (int step = 0; step < 12; ++step) {
            const auto kind = random() % 8;
            if (kind == 0) {
                file.resize(random() % (file.size() + 1)); // truncated at any place
            } else if (kind == 1) {
                file = test::randomTranscript(random, random() % 40); // replaced by a file of any size
            } else {
                file += test::randomTranscript(random, random() % 12);
            }
            files.write(path, file);
            naive.read(file, now, expected);
            scanner.scan(path, now, now);
            ASSERT_EQ(scanner.tallies().at(path), expected) << file;
        }
    }
}

TEST_F(Splits, TruncationAtEveryPlaceIsReadLikePlainly) {
    std::mt19937 random(3);
    const std::string whole = test::randomTranscript(random, 60) + "\n";
    const std::string other = test::randomTranscript(random, 60) + "\n";
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        for (const std::string& next :
             {whole.substr(0, size), other.substr(0, std::min(size, other.size()))}) {
            test::MemoryFiles files;
            BackgroundScanner scanner(files);
            const test::NaiveScanner naive;
            Tally expected;
            for (const std::string& bytes : {whole, next, next + "\n", next + "\n" + other}) {
                files.write(path, bytes);
                naive.read(bytes, now, expected);
                scanner.scan(path, now, now);
                ASSERT_EQ(scanner.tallies().at(path), expected) << size;
            }
        }
    }
}

TEST_F(Splits, BrokenTranscriptsAreReadLikePlainly) {
    const std::filesystem::path folder = MIMKINS_SOURCE_DIR "/Tests/Data/invalid/scannerLines";
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string bytes = test::readWhole(entry.path().string());
        for (const std::size_t blockSize : {1U, 7U, 64U, 4'096U}) {
            test::MemoryFiles files;
            files.write(path, bytes);
            BackgroundScanner::Options options;
            options.blockSize = blockSize;
            BackgroundScanner scanner(files, options);
            scanner.scan(path, now, now);
            EXPECT_EQ(scanner.tallies().at(path), test::naiveTally(bytes, now)) << entry.path();
        }
        ++count;
    }
    EXPECT_GE(count, 10);
}
