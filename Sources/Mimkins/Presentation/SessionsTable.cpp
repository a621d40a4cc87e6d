#include "Presentation/SessionsTable.h"

#include "Presentation/Elapsed.h"
#include "Presentation/Summary.h"

#include <string_view>

namespace mimkins {

namespace {

/// The ANSI colour of a mood: yellow for those who wait, magenta for a snag, green for a finished turn, blue
/// at work, dim for the rest.
std::string_view terminalColor(Mood mood) {
    if (wantsAttention(mood)) {
        return "33";
    }
    switch (mood) {
    case Mood::snag:
    case Mood::stuck:
        return "35";
    case Mood::yourTurn:
        return "32";
    case Mood::working:
    case Mood::compacting:
    case Mood::background:
        return "34";
    default:
        return "2";
    }
}

std::vector<TableCell> row(const Session& session, const SessionsTableMoment& moment) {
    return {
        {session.petName(moment.shuffle), ""},
        {printable(session.project), ""},
        {std::string(label(session.mood)), terminalColor(session.mood)},
        {elapsed(moment.now - session.since), ""},
        {printable(session.title.value_or("")), ""},
        {printable(session.activity().value_or("")), ""},
    };
}

} // namespace

std::string sessionsTable(
    const std::vector<Session>& sessions, const SessionsTableMoment& moment, const TableStyle& style
) {
    if (sessions.empty()) {
        return "No pets out\n";
    }
    std::vector<std::vector<TableCell>> rows;
    rows.reserve(sessions.size());
    for (const auto& session : sessions) {
        rows.push_back(row(session, moment));
    }
    return renderTable({"PET", "PROJECT", "STATE", "SINCE", "TITLE", "ACTIVITY"}, rows, style) + "\n" +
           summary(sessions).text + "\n";
}

} // namespace mimkins
