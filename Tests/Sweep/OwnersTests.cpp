#include "Platform/Linux/LinuxRandomAccessFiles.h"
#include "Support/TemporaryFolder.h"
#include "Sweep/RepositoryOwners.h"
#include "Sweep/TranscriptLine.h"
#include "Sweep/TranscriptSearch.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

using namespace mimkins;
using namespace mimkins::test;

namespace {

/// A transcript in memory. Bytes from `lost` on are gone since it was opened.
class MemoryTranscript final : public RandomAccessFile {
public:
    explicit MemoryTranscript(std::string bytes) : lost(bytes.size()), bytes_(std::move(bytes)) {}

    FileIdentity identity() const override { return {1, 1, bytes_.size(), {}}; }

    std::optional<std::size_t> read(std::uint64_t position, std::span<char> buffer) const override {
        const auto begin = std::min<std::size_t>(position, lost);
        const auto count = std::min(buffer.size(), lost - begin);
        std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(begin), count, buffer.begin());
        bytesRead += count;
        return count;
    }

    std::size_t lost;
    mutable std::size_t bytesRead = 0;

private:
    std::string bytes_;
};

std::string edit(const std::string& path, const std::string& time = "2026-11-21T07:30:00.000Z") {
    return R"({"type":"assistant","timestamp":")" + time +
           R"(","message":{"content":[{"type":"tool_use","name":"Edit","input":{"file_path":")" + path +
           "\"}}]}}\n";
}

std::string readCall(const std::string& path) {
    return R"({"type":"assistant","message":{"content":[{"type":"tool_use","name":"Read","input":{"file_path":")" +
           path + "\"}}]}}\n";
}

std::string remark(const std::string& text) {
    return R"({"type":"user","message":{"content":")" + text + "\"}}\n";
}

std::vector<bool> changes(
    const std::string& text, const std::vector<std::string>& names, Date since = {0},
    std::size_t blockSize = 64
) {
    const NameSearch search(names);
    std::vector<bool> changed(names.size());
    findChanges(MemoryTranscript(text), {search, since, blockSize}, changed);
    return changed;
}

bool shows(const std::string& text, Date since = {0}, std::size_t blockSize = 64) {
    return changes(text, {"a.txt"}, since, blockSize).front();
}

/// The same question for one name, asked in the plainest way.
bool plainly(const std::string& name, const std::string& text, Date since) {
    json::Parser parser;
    std::size_t before = text.size();
    for (std::size_t mention = 0; mention < mentionLimit; ++mention) {
        if (before < name.size()) {
            return false;
        }
        const auto hit = text.rfind(name, before - name.size());
        if (hit == std::string::npos) {
            return false;
        }
        before = hit;
        const auto newline = hit == 0 ? std::string::npos : text.rfind('\n', hit - 1);
        const auto begin = newline == std::string::npos ? 0 : newline + 1;
        const auto end = std::min(text.find('\n', hit), text.size());
        const auto verdict = TranscriptLine(text.substr(begin, end - begin), parser).verdict(name, since);
        if (verdict != LineVerdict::silent) {
            return verdict == LineVerdict::changes;
        }
    }
    return false;
}

class Owners : public testing::Test {
protected:
    SessionTranscripts session(const std::string& id, const std::vector<std::string>& texts) const {
        SessionTranscripts result{id, {}};
        for (const auto& text : texts) {
            result.paths.push_back(folder / (id + std::to_string(result.paths.size()) + ".jsonl"));
            writeFile(result.paths.back(), text);
        }
        return result;
    }

    TemporaryFolder folder;
    LinuxRandomAccessFiles opener;
};

} // namespace

RC_GTEST_PROP(TranscriptSearch, AgreesWithThePlainSearch, ()) {
    const auto line = rc::gen::element<std::string>(
        edit("/x/a.txt", "2026-11-21T07:30:00.000Z"), edit("a.txt", "2026-11-20T07:30:00.000Z"),
        edit("/x/aa.txt"), edit("/txt"), readCall("/x/a.txt"), readCall("a.txta.txt"), remark("a.txt a.txt"),
        remark("aa.txt txt"), "{\"a.txt\n", "\n", "a.txt", "txt\n"
    );
    std::string text;
    for (const auto& piece : *rc::gen::container<std::vector<std::string>>(line)) {
        text += piece;
    }
    const std::vector<std::string> names{"a.txt", "aa.txt", "txt", "a.txta.txt", "t"};
    const Date since{*rc::gen::element(0.0, 1'795'220'000.0, 1.9e9)};
    const auto found = changes(text, names, since, *rc::gen::inRange<std::size_t>(1, 300));
    for (std::size_t index = 0; index < names.size(); ++index) {
        RC_ASSERT(found[index] == plainly(names[index], text, since));
    }
}

TEST(TranscriptSearch, FindsTheFirstAndTheLastLine) {
    EXPECT_TRUE(shows(edit("a.txt") + remark("x")));
    EXPECT_TRUE(shows(remark("x") + edit("a.txt")));
    std::string unended = remark("x") + edit("a.txt");
    unended.pop_back();
    EXPECT_TRUE(shows(unended));
    EXPECT_FALSE(shows(""));
    EXPECT_FALSE(shows("\n\n"));
}

TEST(TranscriptSearch, AChangeBeforeTheLastCommitEndsTheSearch) {
    const std::string old = edit("a.txt", "2026-11-20T00:00:00.000Z");
    const Date since{1'795'220'000}; // 21 November 2026
    EXPECT_FALSE(shows(old, since));
    EXPECT_TRUE(shows(old + edit("a.txt"), since));
    EXPECT_FALSE(shows(edit("a.txt") + old, since));
    EXPECT_TRUE(shows(edit("a.txt") + edit("b.txt", "2026-11-20T00:00:00.000Z"), since));
}

TEST(TranscriptSearch, ThreeHundredMentionsAreLookedAt) {
    const auto withRemarks = [](std::size_t count) {
        std::string text = edit("a.txt");
        for (std::size_t number = 0; number < count; ++number) {
            text += remark("a.txt");
        }
        return text;
    };
    EXPECT_TRUE(shows(withRemarks(299)));
    EXPECT_FALSE(shows(withRemarks(300)));
    // Mentions in one line count each.
    std::string many;
    for (int number = 0; number < 300; ++number) {
        many += "a.txt ";
    }
    EXPECT_FALSE(shows(edit("a.txt") + remark(many)));
    EXPECT_TRUE(shows(edit("a.txt") + remark(many.substr(6))));
}

TEST(TranscriptSearch, AFileThatShrinksCostsItsEndAlone) {
    const std::string text = edit("a.txt") + edit("b.txt");
    MemoryTranscript file(text);
    file.lost = edit("a.txt").size() + 5;
    const NameSearch search({"a.txt", "b.txt"});
    std::vector<bool> changed(2);
    findChanges(file, {search, Date{0}}, changed);
    EXPECT_EQ(changed, (std::vector<bool>{true, false}));
}

TEST(TranscriptSearch, ReadsNoFurtherThanNeeded) {
    const std::string padding(1'000'000, ' ');
    const MemoryTranscript file(padding + "\n" + edit("a.txt"));
    const NameSearch search({"a.txt"});
    std::vector<bool> changed(1);
    findChanges(file, {search, Date{0}, 4'096}, changed);
    EXPECT_TRUE(changed.front());
    EXPECT_LT(file.bytesRead, 10'000U);
    file.bytesRead = 0;
    findChanges(file, {search, Date{0}, 4'096}, changed);
    EXPECT_EQ(file.bytesRead, 0U);
}

TEST(TranscriptSearch, LongLinesAreReadButNotEndlessOnes) {
    const auto withPadding = [](std::size_t size) {
        std::string line = edit("a.txt");
        line.insert(1, std::string(size, ' '));
        return line;
    };
    EXPECT_TRUE(shows(withPadding(1'000'000), {0}, 4'096));
    EXPECT_FALSE(shows(withPadding(longestTranscriptLine), {0}, 1'048'576));
}

TEST(TranscriptSearch, ANameWithANewlineIsInNoLine) {
    EXPECT_EQ(
        changes(edit("b.txt") + "x\ny" + edit("c.txt"), {"x\ny", "b.txt"}), (std::vector<bool>{false, true})
    );
}

TEST_F(Owners, OnlyTheSessionThatChangedAFileOwnsIt) {
    const auto one = session("one", {edit("/r/src/a.txt")});
    const auto two = session("two", {readCall("/r/src/a.txt"), edit("/r/b.txt")});
    EXPECT_EQ(
        owners({"src/a.txt", "b.txt", "c.txt"}, {one, two}, Date{0}, opener),
        (RepositoryOwners{{"src/a.txt", {"one"}}, {"b.txt", {"two"}}})
    );
}

TEST_F(Owners, AFileMayHaveSeveralOwnersAndANameSeveralFiles) {
    const auto one = session("one", {edit("/r/src/a.txt")});
    const auto two = session("two", {"", edit("a.txt")});
    EXPECT_EQ(
        owners({"src/a.txt", "a.txt"}, {one, two}, Date{0}, opener),
        (RepositoryOwners{{"src/a.txt", {"one", "two"}}, {"a.txt", {"one", "two"}}})
    );
}

TEST_F(Owners, UnreadableTranscriptsAreLeftOut) {
    auto one = session("one", {edit("a.txt")});
    one.paths.insert(one.paths.begin(), {folder / "missing", folder.path(), "/dev/zero"});
    EXPECT_EQ(owners({"a.txt"}, {one}, Date{0}, opener), (RepositoryOwners{{"a.txt", {"one"}}}));
    EXPECT_EQ(owners({}, {one}, Date{0}, opener), RepositoryOwners{});
}
