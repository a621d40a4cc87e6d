#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

namespace mimkins {

/// Judges the value of the key "id" whose first letter stands at `place`. True if the place holds no such
/// key, or one of an object that is itself a key's value and so no part of a list, or an id that is answered.
bool isAnsweredAt(
    std::string_view line, std::size_t place, const std::function<bool(std::string_view id)>& isAnswered
);

} // namespace mimkins
