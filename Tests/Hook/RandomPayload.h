#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <random>
#include <string>

namespace mimkins::test {

/// Makes JSON documents at random that look like the client's: its keys in any order, twice, nested or
/// holding the wrong type; strings with all kinds of characters, each escaped or not; white space anywhere.
class RandomPayload {
public:
    explicit RandomPayload(std::uint32_t seed) : random_(seed) {}

    /// The next document. Its keys `session_id` and `hook_event_name` are most often right.
    std::string next();

private:
    bool chance(int percent) { return number(100) < percent; }

    int number(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }

    std::string pick(const std::vector<std::string>& choices);
    std::string space();
    std::string character(char32_t scalar);
    std::string quoted(const std::u32string& text);

    std::string quoted(const std::string& ascii) {
        return quoted(std::u32string(ascii.begin(), ascii.end()));
    }

    std::u32string text();
    std::string value(int depth);
    std::string valueOf(const std::string& key, int depth);
    std::string object(int depth);
    std::string member(const std::string& key);
    std::string memberValue(const std::string& key);

    std::mt19937 random_;
};

/// The record that a document leaves in an empty folder, without `since` and `ts`; nothing if it leaves none.
std::optional<nlohmann::json> expectedRecord(const nlohmann::json& payload);

} // namespace mimkins::test
