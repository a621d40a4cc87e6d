#include "HookInstaller/NumberTokens.h"

namespace mimkins {

namespace {

std::size_t digits(std::string_view text, std::size_t start) {
    std::size_t end = start;
    while (end < text.size() && text[end] >= '0' && text[end] <= '9') {
        ++end;
    }
    return end - start;
}

bool isAt(std::string_view text, std::size_t position, std::string_view characters) {
    return position < text.size() && characters.find(text[position]) != std::string_view::npos;
}

/// How many bytes at the beginning are a number in JSON's grammar; 0 if none. Reads as far as the grammar
/// allows and no further, so that what makes a number invalid is left standing behind it.
std::size_t numberLength(std::string_view text) {
    std::size_t length = isAt(text, 0, "-") ? 1 : 0;
    const std::size_t whole = isAt(text, length, "0") ? 1 : digits(text, length);
    if (whole == 0) {
        return 0;
    }
    length += whole;
    if (isAt(text, length, ".")) {
        const std::size_t fraction = digits(text, length + 1);
        length += fraction > 0 ? 1 + fraction : 0;
    }
    if (isAt(text, length, "eE")) {
        const std::size_t sign = isAt(text, length + 1, "+-") ? 1 : 0;
        const std::size_t exponent = digits(text, length + 1 + sign);
        length += exponent > 0 ? 1 + sign + exponent : 0;
    }
    return length;
}

/// The position behind the string that begins with the quotation mark at `start`.
std::size_t endOfString(std::string_view text, std::size_t start) {
    std::size_t position = start + 1;
    while (position < text.size() && text[position] != '"') {
        position += text[position] == '\\' ? 2 : 1;
    }
    return position + 1;
}

} // namespace

NumberTokens setNumbersAside(std::string_view json) {
    NumberTokens result{std::string(json), {}};
    std::size_t position = 0;
    while (position < json.size()) {
        if (json[position] == '"') {
            position = endOfString(json, position);
            continue;
        }
        const std::size_t length = numberLength(json.substr(position));
        if (length == 0) {
            ++position;
            continue;
        }
        result.numbers.emplace_back(json.substr(position, length));
        result.text.replace(position, length, "0" + std::string(length - 1, ' '));
        position += length;
    }
    return result;
}

} // namespace mimkins
