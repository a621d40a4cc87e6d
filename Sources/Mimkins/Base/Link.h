#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mimkins {

/// The scheme of a link in lower case, such as "https". Nothing unless the whole text is a URI as RFC 3986
/// writes it: a scheme, a colon, then only the characters that a URI may hold, with "%" before two
/// hexadecimal digits.
std::optional<std::string> linkScheme(std::string_view text);

/// The text with every byte written as "%" and two digits but letters, digits and the given marks.
std::string percentEncoded(std::string_view text, std::string_view marks);

/// The file link of an absolute path. Whatever a link may not hold, or would read as something else, is
/// written as "%" and two digits.
std::string fileLink(std::string_view path);

} // namespace mimkins
