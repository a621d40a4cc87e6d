#include "Background/BackgroundScanner.h"
#include "Base/Lookup.h"
#include "SessionStore/SessionStore.h"
#include "Sweep/RunSweep.h"
#include "Sweep/SweepRequest.h"

#include <algorithm>
#include <utility>

namespace mimkins {

// What is found on the scan queue: background work, and the report before logging off.

namespace {

/// Only a session that looks at rest can be hiding work.
bool mayHideWork(Mood mood) {
    return mood == Mood::yourTurn || mood == Mood::done || mood == Mood::commitWaiting ||
           mood == Mood::background;
}

} // namespace

std::vector<BackgroundRequest> SessionStore::backgroundRequests() const {
    std::vector<BackgroundRequest> requests;
    for (const auto& session : sessions_) {
        const auto* entry = mayHideWork(session.mood) ? lookup(registry_, session.id) : nullptr;
        const auto path = entry != nullptr ? transcriptPath(session.id) : std::nullopt;
        if (path) {
            const auto shells = liveShellCount(services_.processes, entry->pid);
            requests.push_back({session.id, *path, entry->started, shells});
        }
    }
    return requests;
}

void SessionStore::refreshBackground() {
    if (scanInFlight_) {
        return;
    }
    auto requests = backgroundRequests();
    if (requests.empty() && background_.empty()) {
        return;
    }
    scanInFlight_ = true;
    const std::weak_ptr<const bool> alive = alive_;
    services_.scanQueue.async([this, alive, scanner = scanner_, &loop = services_.loop,
                               now = services_.loop.now(), requests = std::move(requests)] {
        auto found = scanBackground(*scanner, requests, now);
        loop.post([this, alive, found = std::move(found)]() mutable {
            if (!alive.expired()) {
                takeBackground(std::move(found));
            }
        });
    });
}

void SessionStore::takeBackground(std::map<std::string, BackgroundWork> found) {
    scanInFlight_ = false;
    if (found != background_) {
        background_ = std::move(found);
        rebuild(true);
    }
}

void SessionStore::runSweep() {
    if (sweeping_) {
        return;
    }
    sweeping_ = true;
    sweepChanged_.emit();
    const SweepSources sources{
        sessions_, appInfo(), registry_, [this](const std::string& id) { return transcriptPath(id); }};
    const std::weak_ptr<const bool> alive = alive_;
    auto work = [this, alive, scanner = scanner_, services = services_,
                 request = gatherSweep(sources, services_.loop.now())] {
        const SweepTools tools{
            services.git,
            [&scanner](const SweptTranscript& transcript, Date now) {
                return scanner->scan(transcript.path, transcript.started, now);
            },
            [&services](std::int32_t pid) { return liveShellCount(services.processes, pid); }};
        services.loop.post([this, alive, report = mimkins::runSweep(request, tools)]() mutable {
            if (!alive.expired()) {
                sweep_ = std::move(report);
                sweeping_ = false;
                sweepChanged_.emit();
            }
        });
    };
    services_.scanQueue.async(std::move(work));
}

} // namespace mimkins
