#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mimkins {

/// JSON text whose numbers are kept beside it.
struct NumberTokens {
    /// The text with "0" and blanks in the place of each number, every other byte at its old position. It is
    /// valid JSON exactly if the original is.
    std::string text;
    /// The numbers as they were written, in the order of the text.
    std::vector<std::string> numbers;
};

/// Takes the numbers out of JSON text, so that a parser that turns numbers into machine values can't change
/// them. Text that isn't valid JSON stays invalid.
NumberTokens setNumbersAside(std::string_view json);

} // namespace mimkins
