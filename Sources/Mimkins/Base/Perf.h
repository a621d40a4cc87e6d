#pragma once

#include <set>
#include <string>
#include <string_view>

/// A switch board for experiments with performance: what is named here doesn't run.
namespace mimkins::perf {

/// The names between the commas of a list; empty ones are dropped.
std::set<std::string, std::less<>> namesIn(std::string_view list);

/// What is switched off: "pets", "glow" and "ambient" stop the frames of pets, of the glow and of the
/// drawer's ground; "shadow" leaves out the shadows of cards. Empty in every program that is given to people.
const std::set<std::string, std::less<>>& off();

} // namespace mimkins::perf
