#include "Base/Link.h"

namespace mimkins {

namespace {

bool isLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isHexadecimal(char character) {
    return isDigit(character) || (character >= 'a' && character <= 'f') ||
           (character >= 'A' && character <= 'F');
}

bool isUriCharacter(char character) {
    constexpr std::string_view marks = "-._~:/?#[]@!$&'()*+,;=";
    return isLetter(character) || isDigit(character) || marks.find(character) != std::string_view::npos;
}

bool holdsOnlyUriCharacters(std::string_view text) {
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] == '%') {
            if (index + 2 >= text.size() || !isHexadecimal(text[index + 1]) ||
                !isHexadecimal(text[index + 2])) {
                return false;
            }
            index += 2;
        } else if (!isUriCharacter(text[index])) {
            return false;
        }
    }
    return true;
}

} // namespace

std::optional<std::string> linkScheme(std::string_view text) {
    const auto colon = text.find(':');
    if (colon == std::string_view::npos || colon == 0 || !isLetter(text.front())) {
        return std::nullopt;
    }
    std::string scheme;
    for (const char character : text.substr(0, colon)) {
        if (!isLetter(character) && !isDigit(character) && character != '+' && character != '-' &&
            character != '.') {
            return std::nullopt;
        }
        scheme += character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
    }
    if (!holdsOnlyUriCharacters(text.substr(colon + 1))) {
        return std::nullopt;
    }
    return scheme;
}

std::string percentEncoded(std::string_view text, std::string_view marks) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string encoded;
    for (const char character : text) {
        if (isLetter(character) || isDigit(character) || marks.find(character) != std::string_view::npos) {
            encoded += character;
            continue;
        }
        const auto byte = static_cast<unsigned char>(character);
        encoded += '%';
        encoded += digits[byte >> 4U];
        encoded += digits[byte & 0xFU];
    }
    return encoded;
}

std::string fileLink(std::string_view path) {
    return "file://" + percentEncoded(path, "-._~/");
}

} // namespace mimkins
