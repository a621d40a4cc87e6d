#include "SessionStore/SessionStore.h"

#include "SessionStore/StatusReader.h"

#include <utility>

namespace mimkins {

namespace {

constexpr double tickSeconds = 1.0;
/// A burst of folder events costs one reading in this span, and no event waits longer than it.
constexpr double debounceSeconds = 0.1;

/// The cadences of the sources, in ticks.
constexpr std::int64_t appInfoTicks = 5;
constexpr std::int64_t subtaskTicks = 2;
constexpr std::int64_t repositoryTicks = 3; // and background work

BackgroundScanner::Options scannerOptions(const SessionStoreServices& services) {
    BackgroundScanner::Options options;
    options.shared.queue = services.scanHelper;
    return options;
}

} // namespace

SessionStore::SessionStore(Paths paths, SessionStoreServices services)
    : paths_(std::move(paths)), services_(services), statusReader_(services.files),
      registryReader_(services.files, services.processes), appSessions_(services.files),
      transcriptReader_(services.files), subtaskList_(services.files),
      approvalFinder_(services.files, services.processes),
      scanner_(std::make_shared<BackgroundScanner>(services.transcripts, scannerOptions(services))) {
    statusFolders_.push_back(paths_.sessions());
    if (services_.files.isFolder(paths_.legacySessions())) {
        statusFolders_.push_back(paths_.legacySessions());
    }
    services_.files.createFolders(paths_.sessions());
    reloadAppInfo();
    reloadRegistry();
    reloadRecords();
    refreshRepos();
    refreshBackground();
    watch();
    timer_ = services_.loop.every(tickSeconds, [this] { tick(); });
}

SessionStore::~SessionStore() = default;

void SessionStore::watch() {
    for (const auto& folder : statusFolders_) {
        if (auto handle = services_.watcher.watch(folder, [this] { scheduleReload(); })) {
            watches_.push_back(std::move(handle));
        }
    }
}

void SessionStore::scheduleReload() {
    if (pendingReload_) {
        return;
    }
    pendingReload_ = services_.loop.after(debounceSeconds, [this] {
        pendingReload_.reset();
        reloadRecords();
    });
}

void SessionStore::tick() {
    ++ticks_;
    if (ticks_ % appInfoTicks == 0) {
        reloadAppInfo();
    }
    reloadTranscriptModels();
    reloadRegistry();
    if (ticks_ % subtaskTicks == 0) {
        reloadSubtasks();
        refreshApprovals();
    }
    if (ticks_ % repositoryTicks == 0) {
        refreshRepos();
        refreshBackground();
    }
    rebuild(false);
}

void SessionStore::refreshAll() {
    reloadAppInfo();
    reloadRegistry();
    reloadRecords();
    reloadTranscriptModels();
    reloadSubtasks();
    refreshApprovals();
    refreshRepos();
    refreshBackground();
    rebuild(false);
}

void SessionStore::setRules(const SessionRules& rules) {
    if (rules == rules_) {
        return;
    }
    rules_ = rules;
    rebuild(true);
}

void SessionStore::toggleSubtasks(const std::string& id) {
    if (expandedId_ == id) {
        expandedId_.reset();
    } else {
        expandedId_ = id;
        reloadSubtasks();
    }
    rebuild(true);
}

void SessionStore::reloadRecords() {
    records_ = statusReader_.read(statusFolders_, services_.loop.now());
    rebuild(false);
}

void SessionStore::reloadRegistry() {
    registry_ = registryReader_.read(paths_.clientRegistry(), services_.loop.now());
}

void SessionStore::reloadAppInfo() {
    appSessions_.reload(paths_.desktopSessions());
}

} // namespace mimkins
