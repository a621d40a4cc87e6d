#pragma once

#include <optional>
#include <string_view>
#include <vector>

/// The parts of a line in which each transcript pattern can match. Every match of a pattern lies inside one
/// of its parts, at the same place among the matches as in the whole line; so only the parts, which are short
/// and mostly none, need to become a string and meet the pattern. Lines that merely quote a marker, such as
/// source text in which every quotation mark is escaped, have no parts.
namespace mimkins::parts {

using Parts = std::vector<std::string_view>;

Parts started(std::string_view line);
Parts finished(std::string_view line);
Parts stopped(std::string_view line);
/// Where clients announce a "task".
Parts cron(std::string_view line);
/// Where clients announce a "job".
Parts cronJob(std::string_view line);
Parts cronCreate(std::string_view line);
Parts cronDelete(std::string_view line);

/// The part that holds the first match, or nothing if there is none.
std::optional<std::string_view> timestamp(std::string_view line);

} // namespace mimkins::parts
