#include "Background/BackgroundScanner.h"

#include <algorithm>
#include <utility>

namespace mimkins {

namespace {

/// The item that a scheduled task makes; nothing for a one-shot task that has no date or whose date is past.
std::optional<ScheduledItem> itemOf(const std::string& id, const ScheduledTask& task, Date now) {
    if (task.recurring) {
        return ScheduledItem{id, std::nullopt, true, task.prompt};
    }
    if (!task.fire || *task.fire <= now) {
        return std::nullopt;
    }
    return ScheduledItem{id, task.fire, false, task.prompt};
}

/// True if `left` fires before `right`; what has no date fires last.
bool firesBefore(const ScheduledItem& left, const ScheduledItem& right) {
    return left.fire && (!right.fire || *left.fire < *right.fire);
}

} // namespace

BackgroundScanner::BackgroundScanner(const RandomAccessFiles& files, const Options& options)
    : files_(files), options_(options), lines_(options.blockSize, options.search, options.shared) {}

BackgroundWork BackgroundScanner::scan(const std::string& transcript, Date processStart, Date now) {
    Tally& tally = tallies_[transcript];
    const auto look = files_.look(transcript);
    if (look && !isUnchanged(transcript, *look)) {
        if (const auto file = files_.open(transcript)) {
            seen_.erase(transcript);
            if (consume(*file, now, tally)) {
                seen_.emplace(transcript, file->identity());
            }
        }
    }
    return summary(tally, processStart, now);
}

bool BackgroundScanner::isUnchanged(const std::string& transcript, const FileIdentity& identity) const {
    const auto seen = seen_.find(transcript);
    return seen != seen_.end() && seen->second == identity;
}

void BackgroundScanner::read(const std::string& transcript, Date now, Tally& tally) {
    if (const auto file = files_.open(transcript)) {
        consume(*file, now, tally);
    }
}

bool BackgroundScanner::consume(const RandomAccessFile& file, Date now, Tally& tally) {
    const auto size = file.identity().size;
    if (size < tally.offset) {
        tally = Tally{}; // The file was truncated or replaced.
    }
    if (size > options_.firstReadingLimit && tally.offset == 0) {
        tally.offset = size - options_.firstReadingLimit;
        tally.startsMidLine = true;
    }
    if (tally.offset >= size) {
        return true;
    }
    // A failure in the middle must leave nothing half done, so the lines go into a copy.
    Tally next = tally;
    lineReader_.begin();
    const auto readBatch = [&] {
        batch_.empty([&](std::string_view line, Markers markers) {
            lineReader_.read(line, markers, now, next);
        });
    };
    batch_.clear();
    const auto end = lines_.read(
        file, {tally.offset, size, tally.startsMidLine},
        [&](std::string_view line, Markers markers) {
            batch_.add(line, markers);
            if (batch_.isFull()) {
                readBatch();
            }
        }
    );
    readBatch();
    if (end && *end != tally.offset) {
        next.offset = *end;
        next.startsMidLine = false;
        tally = std::move(next);
    }
    return end.has_value();
}

BackgroundWork summary(const Tally& tally, Date processStart, Date now) {
    BackgroundWork work;
    // What an earlier process of the session has started died with it.
    work.commands = std::count_if(tally.started.begin(), tally.started.end(), [&](const auto& entry) {
        return entry.second >= processStart && !tally.finished.contains(entry.first);
    });
    for (const auto& [id, task] : tally.crons) {
        if (task.created < processStart || tally.deletedCrons.contains(id)) {
            continue;
        }
        if (auto item = itemOf(id, task, now)) {
            work.items.push_back(*std::move(item));
        }
    }
    std::stable_sort(work.items.begin(), work.items.end(), &firesBefore);
    work.scheduled = static_cast<std::int64_t>(work.items.size());
    if (!work.items.empty()) {
        work.nextFire = work.items.front().fire; // That of the soonest one-shot task, if there is one.
    }
    return work;
}

std::map<std::string, BackgroundWork>
scanBackground(BackgroundScanner& scanner, const std::vector<BackgroundRequest>& requests, Date now) {
    std::map<std::string, BackgroundWork> result;
    for (const auto& request : requests) {
        auto work = scanner.scan(request.transcript, request.started, now);
        work.commands = std::min(work.commands, request.liveShells);
        if (work.commands + work.scheduled >= 1) {
            result.insert_or_assign(request.sessionId, std::move(work));
        }
    }
    return result;
}

std::int64_t liveShellCount(const Processes& processes, std::int32_t parent) {
    if (parent < 1) {
        return 0;
    }
    const auto children = processes.children(parent);
    return std::count_if(children.begin(), children.end(), [&](std::int32_t child) {
        return child >= 1 && processes.isShell(child);
    });
}

} // namespace mimkins
