#include "Platform/Linux/OneLoad.h"

namespace mimkins {

namespace {

/// Sources depend on the list, and the list on the sources: a mood decides whether a repository is looked at,
/// and what is found there changes the mood. A few rounds settle it; the limit is for inputs that never do.
constexpr int mostRounds = 8;

} // namespace

OneLoad::OneLoad(const Paths& paths, const SessionRules& rules, Date at)
    : loop_(at), store_(paths, {loop_, files_, watcher_, processes_, git_, transcripts_, queue_, queue_}) {
    store_.setRules(rules);
    for (int round = 0; round < mostRounds; ++round) {
        const auto before = store_.sessions();
        store_.refreshAll();
        if (store_.sessions() == before) {
            break;
        }
    }
}

} // namespace mimkins
