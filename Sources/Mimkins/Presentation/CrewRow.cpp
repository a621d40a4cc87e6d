#include "Presentation/CrewRow.h"

#include "Base/StableSeed.h"
#include "Pet/PetFrame.h"
#include "Presentation/SessionPet.h"

#include <algorithm>
#include <cmath>

namespace mimkins {

std::optional<CrewRow> crewRow(std::span<const Subtask* const> crew, std::uint64_t shuffle) {
    if (crew.empty()) {
        return std::nullopt;
    }
    constexpr std::uint64_t step = 0x9e3779b97f4a7c15U;
    CrewRow row;
    for (const Subtask* task : crew.first(std::min(crew.size(), CrewRow::most))) {
        row.heads.push_back({stableSeed(task->id) ^ (shuffle * step), effortBoost(task->model)});
    }
    if (crew.size() > CrewRow::most) {
        row.more = "+" + std::to_string(crew.size() - CrewRow::most);
    }
    row.toolTip = std::to_string(crew.size()) + (crew.size() == 1 ? " subagent" : " subagents") + " working";
    return row;
}

double crewBob(std::size_t index, Date date) {
    const double t = date.secondsSince1970 - animationReference;
    return std::sin(1.3 * static_cast<double>(index) + 5 * t) * 1.5;
}

} // namespace mimkins
