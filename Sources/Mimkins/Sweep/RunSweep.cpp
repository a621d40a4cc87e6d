#include "Sweep/RunSweep.h"

#include "Base/Collation.h"
#include "Sweep/RepositoryChanges.h"

#include <algorithm>

namespace mimkins {

namespace {

void addRepository(SweepReport& report, const SweptRepository& repository, const GitRunner& git) {
    auto changes = gitChanges(git, repository.root);
    if (changes && (changes->added != 0 || changes->removed != 0)) {
        report.repos.push_back({repository.root, std::move(*changes), repository.title, repository.localId});
    }
}

void addTranscript(SweepReport& report, const SweptTranscript& transcript, const SweepTools& tools) {
    const auto work = tools.scan(transcript, report.generated);
    for (const auto& item : work.items) {
        report.scheduled.push_back({item, transcript.title, transcript.localId});
    }
    const auto commands = std::min(work.commands, tools.liveShells(transcript.pid));
    if (commands > 0) {
        report.running.push_back({transcript.title, transcript.localId, commands});
    }
}

void sort(SweepReport& report) {
    std::stable_sort(
        report.scheduled.begin(), report.scheduled.end(),
        [](const SweepReport::ScheduledLine& left, const SweepReport::ScheduledLine& right) {
            return left.item.fire.value_or(Date::distantFuture()) <
                   right.item.fire.value_or(Date::distantFuture());
        }
    );
    const text::Collation collation;
    std::sort(
        report.repos.begin(), report.repos.end(),
        [&](const SweepReport::RepoLine& left, const SweepReport::RepoLine& right) {
            return collation.before(left.root, right.root);
        }
    );
}

} // namespace

SweepReport runSweep(const SweepRequest& request, const SweepTools& tools) {
    SweepReport report;
    report.generated = request.now;
    report.waiting = request.waiting;
    for (const auto& repository : request.repositories) {
        addRepository(report, repository, tools.git);
    }
    for (const auto& transcript : request.transcripts) {
        addTranscript(report, transcript, tools);
    }
    sort(report);
    return report;
}

} // namespace mimkins
