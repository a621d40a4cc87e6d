#include "Sweep/GitOutput.h"

#include "Base/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace mimkins::gitOutput {

namespace {

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// The number before the first `word` that has one; 0 if there is none or it doesn't fit.
std::int64_t numberBefore(std::string_view word, std::string_view text) {
    for (auto end = text.find(word); end != std::string_view::npos; end = text.find(word, end + 1)) {
        auto begin = end;
        while (begin > 0 && isDigit(text[begin - 1])) {
            --begin;
        }
        if (begin < end) {
            std::int64_t value = 0;
            const auto result = std::from_chars(text.data() + begin, text.data() + end, value);
            return result.ec == std::errc() ? value : 0;
        }
    }
    return 0;
}

} // namespace

bool namesOwnSetting(std::string_view scopedNames) {
    const auto lines = text::splitDroppingEmpty(scopedNames, '\n');
    return std::any_of(lines.begin(), lines.end(), [](std::string_view line) {
        return !line.starts_with("global") && !line.starts_with("system");
    });
}

LineCounts lineCounts(std::string_view shortStatistic) {
    return {numberBefore(" insertion", shortStatistic), numberBefore(" deletion", shortStatistic)};
}

std::vector<std::string> nulSeparated(std::string_view names) {
    const auto pieces = text::splitDroppingEmpty(names, '\0');
    return {pieces.begin(), pieces.end()};
}

std::optional<std::string> branchName(std::string_view line) {
    std::string name = text::trimmed(line);
    return name.empty() ? std::nullopt : std::optional(std::move(name));
}

Date commitTime(std::string_view line) {
    const std::string number = text::trimmed(line);
    double seconds = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), seconds);
    const bool whole = result.ec == std::errc() && result.ptr == number.data() + number.size();
    // "inf" and "nan" read as numbers too, but no commit has such a time, and nothing compares with the
    // latter.
    return {whole && std::isfinite(seconds) ? seconds : 0};
}

} // namespace mimkins::gitOutput
