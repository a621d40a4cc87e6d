#include "NextUp/NextUpPress.h"

#include "NextUp/NextUp.h"

#include <algorithm>

namespace mimkins::NextUp {

namespace {

std::vector<Session> openable(const std::vector<Session>& sessions) {
    auto waiting = queue(sessions);
    std::erase_if(waiting, [](const Session& session) { return !session.jumpURL(); });
    return waiting;
}

auto find(const std::vector<Session>& waiting, const std::string& id) {
    return std::find_if(waiting.begin(), waiting.end(), [&id](const Session& session) {
        return session.id == id;
    });
}

/// Whose turn it is, in a queue that isn't empty.
const Session& next(const std::vector<Session>& waiting, const std::optional<std::string>& last) {
    const auto shown = last ? find(waiting, *last) : waiting.end();
    if (shown == waiting.end() || shown + 1 == waiting.end()) {
        return waiting.front();
    }
    return *(shown + 1);
}

} // namespace

Press press(const Memory& memory, const std::vector<Session>& sessions, Date now) {
    const auto waiting = openable(sessions);
    if (waiting.empty()) {
        return {};
    }
    const auto& pending = memory.pendingOpen;
    if (pending && pending->until > now) {
        if (const auto shown = find(waiting, pending->id); shown != waiting.end()) {
            return {Press::Kind::open, *shown, waiting.size() - 1, {memory.lastNextUp, std::nullopt}};
        }
    }
    const Session& chosen = next(waiting, memory.lastNextUp);
    return {
        Press::Kind::show, chosen, waiting.size() - 1, {chosen.id, PendingOpen{chosen.id, now + openWindow}}};
}

} // namespace mimkins::NextUp
