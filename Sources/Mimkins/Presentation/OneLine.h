#pragma once

#include <string>
#include <string_view>

namespace mimkins {

/// Text from outside on one line: line ends and control characters, which would break a layout, as blanks,
/// and nothing blank at the ends.
std::string onOneLine(std::string_view words);

} // namespace mimkins
