#include "Presentation/Summary.h"

#include <algorithm>

namespace mimkins {

std::int64_t attentionCount(const std::vector<Session>& sessions) {
    return std::count_if(sessions.begin(), sessions.end(), [](const Session& session) {
        return wantsAttention(session.mood);
    });
}

std::string waitingWords(std::int64_t count) {
    return std::to_string(count) + " waiting on you";
}

std::string replyWords(std::int64_t count) {
    return std::to_string(count) + (count == 1 ? " new reply" : " new replies");
}

Summary summary(const std::vector<Session>& sessions) {
    if (const auto waiting = attentionCount(sessions); waiting > 0) {
        return {SummaryKind::waiting, waitingWords(waiting)};
    }
    const auto replies = std::count_if(sessions.begin(), sessions.end(), [](const Session& session) {
        return session.mood == Mood::yourTurn;
    });
    if (replies > 0) {
        return {SummaryKind::replies, replyWords(replies)};
    }
    return {
        SummaryKind::pets,
        std::to_string(sessions.size()) + (sessions.size() == 1 ? " pet out" : " pets out")};
}

} // namespace mimkins
