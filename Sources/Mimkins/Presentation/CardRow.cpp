#include "Presentation/CardRow.h"

#include "Base/Text.h"
#include "Presentation/SessionPet.h"

#include <vector>

namespace mimkins {

namespace {

/// Text from outside on one line: line ends and control characters would break the card's layout.
std::string onOneLine(const std::string& words) {
    std::string line = text::repairUtf8(words);
    for (auto& byte : line) {
        if (static_cast<unsigned char>(byte) < 0x20) {
            byte = ' ';
        }
    }
    return text::trimmed(line);
}

std::string description(const CardRow& row) {
    std::vector<std::string> pieces{row.title};
    if (row.activity) {
        pieces.push_back(*row.activity);
    }
    if (!row.toolTip.empty()) {
        pieces.push_back(row.toolTip);
    }
    return text::join(pieces, ". ");
}

} // namespace

CardRow cardRow(const Session& session, const CardOptions& options) {
    const std::string petName = session.petName(options.shuffle);
    CardRow row;
    row.id = session.id;
    row.mood = session.mood;
    row.since = session.since;
    row.pet = sessionPet(session);
    row.projectToolTip = onOneLine(session.project);
    row.project = text::uppercase(row.projectToolTip);
    row.title = onOneLine(session.title.value_or(session.project));
    if (options.nameTags) {
        row.name = petName;
    }
    row.moodLabel = label(session.mood);
    if (const auto activity = session.activity()) {
        row.activity = onOneLine(*activity);
    }
    row.waiting = wantsAttention(session.mood);
    row.canOpen = session.jumpURL().has_value();
    row.toolTip = row.canOpen ? "Open this session · right-click for more" : "";
    row.accessibleName = text::join({petName, row.moodLabel, row.projectToolTip}, ", ");
    row.accessibleDescription = description(row);
    return row;
}

} // namespace mimkins
