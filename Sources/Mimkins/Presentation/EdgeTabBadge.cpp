#include "Presentation/EdgeTabBadge.h"

#include "Presentation/Summary.h"

#include <algorithm>

namespace mimkins {

EdgeTabBadge edgeTabBadge(const std::vector<Session>& sessions) {
    const auto blocked = attentionCount(sessions);
    if (blocked > 0) {
        return {true, blocked};
    }
    const auto replies = std::count_if(sessions.begin(), sessions.end(), [](const Session& session) {
        return session.mood == Mood::yourTurn;
    });
    return {false, replies};
}

std::string edgeTabWords(const EdgeTabBadge& badge) {
    if (badge.count < 1) {
        return "Nobody waits on you";
    }
    return badge.blocked ? waitingWords(badge.count) : replyWords(badge.count);
}

} // namespace mimkins
