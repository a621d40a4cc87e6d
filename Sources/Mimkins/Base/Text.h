#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Helpers for text in UTF-8. What is a character, a letter or a digit is Unicode's business (ICU). Input
/// that isn't valid UTF-8 never fails: each bad sequence counts as U+FFFD.
namespace mimkins::text {

/// The text with every invalid sequence replaced by U+FFFD; unchanged if it is valid.
std::string repairUtf8(std::string_view bytes);

/// True if the bytes are valid UTF-8.
bool isValidUtf8(std::string_view bytes);

/// The first `count` characters (grapheme clusters), or the whole text if it has fewer.
std::string prefix(std::string_view text, std::size_t count);

/// Lower case by Unicode's rules, independent of any locale.
std::string lowercase(std::string_view text);

/// Upper case by Unicode's rules, independent of any locale.
std::string uppercase(std::string_view text);

/// The first character in upper case (title case), the rest as it stands.
std::string capitalized(std::string_view text);

/// Each character that is neither a letter nor a digit replaced by "-", one for one. A character is a
/// grapheme cluster and judged by its first scalar: alphabetic, or a decimal digit.
std::string dashed(std::string_view text);

/// Lower case, then only the scalars whose general category is a letter, a mark or a number.
std::string squash(std::string_view text);

/// White space and line ends (Unicode White_Space) removed at both ends.
std::string trimmed(std::string_view text);

/// Blanks and tabs removed at both ends, nothing else.
std::string_view trimmedBlanks(std::string_view text);

/// The pieces between separators, empty ones dropped.
std::vector<std::string_view> splitDroppingEmpty(std::string_view text, char separator);

/// The last component of a path: "/a/b/" gives "b", "/" gives "/", "" gives "".
std::string_view lastPathComponent(std::string_view path);

/// The extension of a path's last component without the dot: "a.json" gives "json". A name that begins with a
/// dot and has no other ("".json"") has none, and so has a name without a dot or with the dot at its end.
std::string_view pathExtension(std::string_view path);

/// The pieces joined with the separator.
std::string join(const std::vector<std::string>& pieces, std::string_view separator);

} // namespace mimkins::text
