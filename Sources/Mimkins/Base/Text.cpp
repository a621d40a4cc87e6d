#include "Base/Text.h"

#include <simdjson.h>
#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <memory>

namespace mimkins::text {

namespace {

icu::UnicodeString wide(std::string_view text) {
    return icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<int32_t>(text.size())));
}

std::string narrow(const icu::UnicodeString& text) {
    std::string result;
    text.toUTF8String(result);
    return result;
}

bool isAscii(std::string_view text) {
    for (const char character : text) {
        if (static_cast<unsigned char>(character) >= 0x80U) {
            return false;
        }
    }
    return true;
}

/// Calls `visit(begin, end)` with the UTF-16 bounds of each grapheme cluster until it returns false.
template <typename Visit>
void forEachCharacter(const icu::UnicodeString& text, Visit visit) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> iterator(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status)
    );
    if (U_FAILURE(status)) {
        return;
    }
    iterator->setText(text);
    int32_t begin = iterator->first();
    for (int32_t end = iterator->next(); end != icu::BreakIterator::DONE;
         begin = end, end = iterator->next()) {
        if (!visit(begin, end)) {
            return;
        }
    }
}

bool isLetterOrDigit(UChar32 scalar) {
    return u_isUAlphabetic(scalar) != 0 || u_isdigit(scalar) != 0;
}

bool isAlphanumeric(UChar32 scalar) {
    constexpr uint32_t letterMarkOrNumber = U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK;
    return (U_GET_GC_MASK(scalar) & letterMarkOrNumber) != 0;
}

} // namespace

bool isValidUtf8(std::string_view bytes) {
    return simdjson::validate_utf8(bytes.data(), bytes.size());
}

std::string repairUtf8(std::string_view bytes) {
    if (isValidUtf8(bytes)) {
        return std::string(bytes);
    }
    return narrow(wide(bytes));
}

std::string prefix(std::string_view text, std::size_t count) {
    if (text.size() <= count && isAscii(text)) {
        return std::string(text);
    }
    const icu::UnicodeString characters = wide(text);
    int32_t length = 0;
    std::size_t seen = 0;
    forEachCharacter(characters, [&](int32_t, int32_t end) {
        if (seen == count) {
            return false;
        }
        ++seen;
        length = end;
        return true;
    });
    return narrow(characters.tempSubString(0, length));
}

std::string lowercase(std::string_view text) {
    return narrow(wide(text).toLower(icu::Locale::getRoot()));
}

std::string uppercase(std::string_view text) {
    return narrow(wide(text).toUpper(icu::Locale::getRoot()));
}

std::string capitalized(std::string_view text) {
    const icu::UnicodeString characters = wide(text);
    int32_t firstEnd = 0;
    forEachCharacter(characters, [&](int32_t, int32_t end) {
        firstEnd = end;
        return false;
    });
    icu::UnicodeString first(characters, 0, firstEnd);
    first.toTitle(nullptr, icu::Locale::getRoot());
    return narrow(first.append(characters, firstEnd, characters.length() - firstEnd));
}

std::string dashed(std::string_view text) {
    const icu::UnicodeString characters = wide(text);
    icu::UnicodeString result;
    forEachCharacter(characters, [&](int32_t begin, int32_t end) {
        if (isLetterOrDigit(characters.char32At(begin))) {
            result.append(characters, begin, end - begin);
        } else {
            result.append(u'-');
        }
        return true;
    });
    return narrow(result);
}

std::string squash(std::string_view text) {
    const icu::UnicodeString lower = wide(text).toLower(icu::Locale::getRoot());
    icu::UnicodeString result;
    for (int32_t index = 0; index < lower.length(); index = lower.moveIndex32(index, 1)) {
        const UChar32 scalar = lower.char32At(index);
        if (isAlphanumeric(scalar)) {
            result.append(scalar);
        }
    }
    return narrow(result);
}

std::string trimmed(std::string_view text) {
    const icu::UnicodeString characters = wide(text);
    int32_t begin = 0;
    int32_t end = characters.length();
    while (begin < end && u_isUWhiteSpace(characters.char32At(begin)) != 0) {
        begin = characters.moveIndex32(begin, 1);
    }
    while (end > begin && u_isUWhiteSpace(characters.char32At(end - 1)) != 0) {
        end = characters.moveIndex32(end, -1);
    }
    return narrow(characters.tempSubStringBetween(begin, end));
}

std::string_view trimmedBlanks(std::string_view text) {
    const auto begin = text.find_first_not_of(" \t");
    if (begin == std::string_view::npos) {
        return {};
    }
    return text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

std::vector<std::string_view> splitDroppingEmpty(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    while (!text.empty()) {
        const auto end = text.find(separator);
        const auto piece = text.substr(0, end);
        if (!piece.empty()) {
            pieces.push_back(piece);
        }
        if (end == std::string_view::npos) {
            break;
        }
        text.remove_prefix(end + 1);
    }
    return pieces;
}

std::string_view lastPathComponent(std::string_view path) {
    while (path.size() > 1 && path.back() == '/') {
        path.remove_suffix(1);
    }
    if (path.size() <= 1) {
        return path;
    }
    const auto slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string_view pathExtension(std::string_view path) {
    const auto name = lastPathComponent(path);
    const auto dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0 || dot + 1 == name.size()) {
        return {};
    }
    return name.substr(dot + 1);
}

std::string join(const std::vector<std::string>& pieces, std::string_view separator) {
    std::string result;
    for (const auto& piece : pieces) {
        if (!result.empty() || &piece != &pieces.front()) {
            result += separator;
        }
        result += piece;
    }
    return result;
}

} // namespace mimkins::text
