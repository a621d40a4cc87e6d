#include "Presentation/SubtasksPill.h"

namespace mimkins {

std::optional<SubtasksPill> subtasksPill(std::size_t running, bool expanded) {
    if (running == 0 && !expanded) {
        return std::nullopt;
    }
    SubtasksPill pill;
    pill.on = expanded || running == 0;
    pill.symbol = pill.on ? Symbol::chevronUp : Symbol::stack;
    if (running > 0) {
        pill.count = std::to_string(running);
    }
    pill.toolTip = pill.on ? "Hide subtasks" : "Show subtasks";
    return pill;
}

} // namespace mimkins
