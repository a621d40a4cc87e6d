#include "Platform/Linux/ProcessStat.h"

#include "Base/Text.h"

#include <charconv>
#include <system_error>

namespace mimkins {

namespace {

template <typename Number>
std::optional<Number> parseWhole(std::string_view text) {
    Number number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return number;
}

} // namespace

std::optional<ProcessStat> parseProcessStat(std::string_view line) {
    // After the name only numbers and the state's letter follow, so the last parenthesis ends the name.
    const auto nameBegin = line.find(" (");
    const auto nameEnd = line.rfind(") ");
    if (nameBegin == std::string_view::npos || nameEnd == std::string_view::npos || nameEnd < nameBegin) {
        return std::nullopt;
    }
    // The manual counts fields from 1; the state is the third and the first after the name.
    constexpr std::size_t firstField = 3;
    constexpr std::size_t parentField = 4;
    constexpr std::size_t startField = 22;
    const auto fields = text::splitDroppingEmpty(line.substr(nameEnd + 2), ' ');
    if (fields.size() <= startField - firstField || fields[0].size() != 1) {
        return std::nullopt;
    }
    const auto pid = parseWhole<std::int32_t>(line.substr(0, nameBegin));
    const auto parent = parseWhole<std::int32_t>(fields[parentField - firstField]);
    const auto startTicks = parseWhole<std::uint64_t>(fields[startField - firstField]);
    if (!pid || !parent || !startTicks) {
        return std::nullopt;
    }
    return ProcessStat{*pid, fields[0][0], *parent, *startTicks};
}

} // namespace mimkins
