#pragma once

#include <string_view>

namespace mimkins::json {

/// What stands for each of the two characters of an escape sequence that is blanked. JSON lets it stand for
/// itself inside of a string and nowhere else, as the sequence.
inline constexpr char blank = '\x7f';

/// Copies the text, and blanks the escape sequences of two characters. False if there are others, or if this
/// processor has no quick way to do it; the copy is worth nothing then.
bool blankEscapes(std::string_view text, char* into);

} // namespace mimkins::json
