#include "NextUp/NextUp.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace mimkins::NextUp {

namespace {

std::optional<int> rank(Mood mood) {
    if (waitsOnUser(mood)) {
        return 0;
    }
    if (mood == Mood::commitWaiting) {
        return 1;
    }
    return mood == Mood::yourTurn ? std::optional(2) : std::nullopt;
}

} // namespace

std::vector<Session> queue(const std::vector<Session>& sessions) {
    std::vector<Session> waiting;
    std::copy_if(sessions.begin(), sessions.end(), std::back_inserter(waiting), [](const Session& session) {
        return rank(session.mood).has_value();
    });
    std::stable_sort(waiting.begin(), waiting.end(), [](const Session& left, const Session& right) {
        return std::tuple(rank(left.mood), left.since) < std::tuple(rank(right.mood), right.since);
    });
    return waiting;
}

} // namespace mimkins::NextUp
