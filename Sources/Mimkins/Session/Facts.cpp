#include "Session/Facts.h"

namespace mimkins {

std::optional<std::string> Subtask::activity() const {
    if (!running) {
        return std::nullopt;
    }
    if (!tool) {
        return "Thinking";
    }
    return detail ? *tool + ": " + *detail : *tool;
}

} // namespace mimkins
