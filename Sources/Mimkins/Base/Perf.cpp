#include "Base/Perf.h"

#include "Base/Text.h"

namespace mimkins::perf {

namespace {

constexpr std::string_view switchedOff;

} // namespace

std::set<std::string, std::less<>> namesIn(std::string_view list) {
    std::set<std::string, std::less<>> names;
    for (const std::string_view name : text::splitDroppingEmpty(list, ',')) {
        names.emplace(name);
    }
    return names;
}

const std::set<std::string, std::less<>>& off() {
    static const auto names = namesIn(switchedOff);
    return names;
}

} // namespace mimkins::perf
