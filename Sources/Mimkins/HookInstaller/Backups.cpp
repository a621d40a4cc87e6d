#include "HookInstaller/Backups.h"

#include "Base/DateText.h"
#include "Base/Text.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace mimkins {

namespace {

/// A number of at most two characters, signs included.
std::optional<int> shortNumber(std::string_view piece) {
    if (piece.size() > 2) {
        return std::nullopt;
    }
    const std::string_view digits = piece.substr(piece.substr(0, 1) == "+" ? 1 : 0);
    int value = 0;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (failure != std::errc{} || end != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return value;
}

/// Makes "stamp-10" come after "stamp-9", and a plain stamp before "stamp-2".
std::pair<std::string, int> sortKey(std::string_view name) {
    const std::string_view stamp = name.substr(backupPrefix.size());
    const auto pieces = text::splitDroppingEmpty(stamp, '-');
    const auto number = pieces.size() < 2 ? std::nullopt : shortNumber(pieces.back());
    if (!number) {
        return {std::string(stamp), 1};
    }
    return {text::join({pieces.begin(), pieces.end() - 1}, "-"), *number};
}

} // namespace

std::string backupName(Date date, int number) {
    std::string stamp = text::iso8601(date);
    std::erase(stamp, ':');
    return std::string(backupPrefix) + stamp + (number > 1 ? "-" + std::to_string(number) : "");
}

std::vector<std::string> outdatedBackups(const std::vector<std::string>& names) {
    std::vector<std::string> backups;
    std::copy_if(names.begin(), names.end(), std::back_inserter(backups), [](const std::string& name) {
        return name.compare(0, backupPrefix.size(), backupPrefix) == 0;
    });
    std::sort(backups.begin(), backups.end(), [](const std::string& left, const std::string& right) {
        return sortKey(left) < sortKey(right);
    });
    backups.resize(backups.size() - std::min(backups.size(), backupsKept));
    return backups;
}

} // namespace mimkins
