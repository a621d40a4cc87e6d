#include "SessionStore/SessionOrder.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

namespace mimkins {

namespace {

/// A session with the moment of its arrival.
struct Arrival {
    Date started;
    Session session;
};

bool latestFirst(const Session& left, const Session& right) {
    return left.since > right.since;
}

void sortByArrival(
    std::vector<Session>& list, const FirstSeen& firstSeen,
    const std::map<std::string, RegistryEntry>& registry
) {
    std::vector<Arrival> arrivals;
    arrivals.reserve(list.size());
    for (auto& session : list) {
        const auto entry = registry.find(session.id);
        const auto seen = firstSeen.find(session.id);
        Date started = seen != firstSeen.end() ? seen->second : Date{};
        if (entry != registry.end() && entry->second.started > Date::distantPast()) {
            started = entry->second.started;
        }
        arrivals.push_back({started, std::move(session)});
    }
    std::stable_sort(arrivals.begin(), arrivals.end(), [](const Arrival& left, const Arrival& right) {
        return left.started != right.started ? left.started < right.started
                                             : left.session.id < right.session.id;
    });
    std::transform(arrivals.begin(), arrivals.end(), list.begin(), [](Arrival& arrival) {
        return std::move(arrival.session);
    });
}

/// Those that wait on the user rise to the top, those with lines to commit follow, each group latest first.
void raiseAttention(std::vector<Session>& list) {
    const auto commits = std::stable_partition(list.begin(), list.end(), [](const Session& session) {
        return waitsOnUser(session.mood);
    });
    const auto others = std::stable_partition(commits, list.end(), [](const Session& session) {
        return session.mood == Mood::commitWaiting;
    });
    std::stable_sort(list.begin(), commits, latestFirst);
    std::stable_sort(commits, others, latestFirst);
}

} // namespace

void noteArrivals(FirstSeen& firstSeen, const std::vector<Session>& list, Date now) {
    std::set<std::string> listed;
    for (const auto& session : list) {
        listed.insert(session.id);
        firstSeen.try_emplace(session.id, now);
    }
    for (auto entry = firstSeen.begin(); entry != firstSeen.end();) {
        entry = listed.count(entry->first) != 0 ? std::next(entry) : firstSeen.erase(entry);
    }
}

std::vector<Session> inDisplayOrder(
    std::vector<Session> list, ReorderMode mode, const FirstSeen& firstSeen,
    const std::map<std::string, RegistryEntry>& registry
) {
    if (mode == ReorderMode::always) {
        std::stable_sort(list.begin(), list.end(), [](const Session& left, const Session& right) {
            return left.since != right.since ? left.since > right.since : left.id > right.id;
        });
        return list;
    }
    sortByArrival(list, firstSeen, registry);
    if (mode == ReorderMode::whenNeeded) {
        raiseAttention(list);
    }
    return list;
}

} // namespace mimkins
