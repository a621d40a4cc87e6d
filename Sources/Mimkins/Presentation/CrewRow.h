#pragma once

#include "Base/Date.h"
#include "Pet/MiniHead.h"
#include "Session/Facts.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace mimkins {

/// The heads of a session's running subtasks under its pet.
struct CrewRow {
    static constexpr std::size_t most = 4;
    static constexpr double overlap = 3; ///< of neighbouring heads, points

    std::vector<MiniHead> heads;
    std::optional<std::string> more; ///< how many are left out
    std::string toolTip;

    friend bool operator==(const CrewRow&, const CrewRow&) = default;
};

/// Nothing for an empty crew. `shuffle` gives all heads a new look at once.
std::optional<CrewRow> crewRow(std::span<const Subtask* const> crew, std::uint64_t shuffle);

/// How far down a head has bobbed, in points.
double crewBob(std::size_t index, Date date);

} // namespace mimkins
