#include "Sweep/NameSearch.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

using namespace mimkins;

namespace {

using Hit = std::pair<std::size_t, std::size_t>; // name and position

/// All occurrences, the last first, of one position the names in their order.
std::vector<Hit> hits(const std::vector<std::string>& names, const std::string& text, std::size_t blockSize) {
    const NameSearch search(names);
    NameSearch::Progress progress;
    std::vector<Hit> result;
    std::size_t rest = text.size();
    while (rest > 0) {
        const auto count = std::min(rest, blockSize);
        rest -= count;
        search.walk(
            std::string_view(text).substr(rest, count), progress,
            [&](std::size_t name, std::size_t at) {
                result.emplace_back(name, rest + at);
                return true;
            }
        );
    }
    return result;
}

std::vector<Hit> naiveHits(const std::vector<std::string>& names, const std::string& text) {
    std::vector<Hit> result;
    for (std::size_t position = text.size(); position-- > 0;) {
        for (std::size_t name = 0; name < names.size(); ++name) {
            if (!names[name].empty() && text.compare(position, names[name].size(), names[name]) == 0) {
                result.emplace_back(name, position);
            }
        }
    }
    return result;
}

/// Texts of few letters, so that names overlap, repeat and stand inside each other.
rc::Gen<std::string> denseText() {
    return rc::gen::container<std::string>(rc::gen::element('a', 'b', '\xff', '\0'));
}

} // namespace

RC_GTEST_PROP(NameSearch, FindsWhatANaiveSearchFinds, ()) {
    const auto drawn = *rc::gen::container<std::set<std::string>>(denseText());
    const std::vector<std::string> names(drawn.begin(), drawn.end());
    const auto text = *denseText();
    const auto blockSize = *rc::gen::inRange<std::size_t>(1, 20);
    auto expected = naiveHits(names, text);
    auto found = hits(names, text, blockSize);
    RC_ASSERT(std::is_sorted(found.begin(), found.end(), [](const Hit& left, const Hit& right) {
        return left.second > right.second;
    }));
    std::sort(expected.begin(), expected.end());
    std::sort(found.begin(), found.end());
    RC_ASSERT(found == expected);
}

TEST(NameSearch, StopsWhenTold) {
    const NameSearch search({"a"});
    NameSearch::Progress progress;
    int visits = 0;
    EXPECT_FALSE(search.walk("a.a.a", progress, [&](std::size_t, std::size_t) { return ++visits < 2; }));
    EXPECT_EQ(visits, 2);
}

TEST(NameSearch, WithoutNamesFindsNothing) {
    EXPECT_TRUE(hits({}, "anything", 3).empty());
    EXPECT_TRUE(hits({""}, "anything", 3).empty());
}
