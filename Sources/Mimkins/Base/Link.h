#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mimkins {

/// The scheme of a link in lower case, such as "https". Nothing unless the whole text is a URI as RFC 3986
/// writes it: a scheme, a colon, then only the characters that a URI may hold, with "%" before two
/// hexadecimal digits.
std::optional<std::string> linkScheme(std::string_view text);

} // namespace mimkins
