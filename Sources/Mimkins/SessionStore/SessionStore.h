#pragma once

#include "Background/BackgroundScanner.h"
#include "Base/Handle.h"
#include "Base/Paths.h"
#include "Platform/FileSystem.h"
#include "Platform/FolderWatcher.h"
#include "Platform/GitRunner.h"
#include "Platform/Processes.h"
#include "Platform/RandomAccessFile.h"
#include "Platform/RunLoop.h"
#include "Platform/WorkQueue.h"
#include "Session/Derivation.h"
#include "Session/Liveness.h"
#include "SessionStore/AppSessionReader.h"
#include "SessionStore/RegistryReader.h"
#include "SessionStore/SessionOrder.h"
#include "SessionStore/StatusReader.h"
#include "Subtask/ApprovalFinder.h"
#include "Subtask/SubtaskList.h"
#include "Sweep/RepositoryWatch.h"
#include "Sweep/SweepReport.h"

#include <sigc++/signal.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace mimkins {

/// What the store needs of the system. All of it outlives the store.
struct SessionStoreServices {
    RunLoop& loop;
    FileSystem& files;
    FolderWatcher& watcher;
    Processes& processes;
    const GitRunner& git;
    const RandomAccessFiles& transcripts; ///< how transcripts are opened off the main thread
    WorkQueue& repositoryQueue;           ///< checks of repositories, several at once
    WorkQueue& scanQueue;                 ///< scans of transcripts and sweeps, one at a time
    /// Has a thread that shares the scan of a transcript that has grown by a lot; null on a machine with one
    /// processor, where sharing only costs.
    WorkQueue* scanHelper = nullptr;
};

/// The one source of truth: knows every source, reads each at its own pace, and publishes the ordered list of
/// sessions that everything shows. Main thread only.
class SessionStore {
public:
    /// Loads all sources, publishes a first list, then watches the status folders and ticks each second.
    SessionStore(Paths paths, SessionStoreServices services);
    ~SessionStore();

    SessionStore(const SessionStore&) = delete;
    SessionStore& operator=(const SessionStore&) = delete;

    // What is published.

    const std::vector<Session>& sessions() const { return sessions_; }

    /// The subtasks of each session that has any, in display order.
    const SubtaskMap& subtasks() const { return subtasks_; }

    /// The session whose subtask list is open.
    const std::optional<std::string>& expandedId() const { return expandedId_; }

    /// The list or the expanded session has changed.
    sigc::signal<void()>& sessionsChanged() { return sessionsChanged_; }

    sigc::signal<void()>& subtasksChanged() { return subtasksChanged_; }

    /// The last report of what is left before logging off; it stays until the next one is there.
    const std::optional<SweepReport>& sweep() const { return sweep_; }

    /// True while a sweep is under way.
    bool sweeping() const { return sweeping_; }

    /// The report, or whether one is under way, has changed.
    sigc::signal<void()>& sweepChanged() { return sweepChanged_; }

    /// Called for each session that newly starts to wait on the user, in list order; never for the first
    /// list.
    std::function<void(const Session&)> onNeedsKeeper;

    // What the user changes.

    const SessionRules& rules() const { return rules_; }

    /// Takes new rules and rebuilds if any of them differs.
    void setRules(const SessionRules& rules);
    /// Opens or closes a session's list of subtasks.
    void toggleSubtasks(const std::string& id);
    /// Looks at all that may be left before logging off; does nothing while a sweep is under way.
    void runSweep();

    // What is prepared for each session.

    const std::map<std::string, StatusRecord>& records() const { return records_; }

    const std::map<std::string, RegistryEntry>& registry() const { return registry_; }

    const std::map<std::string, AppSessionInfo>& appInfo() const { return appSessions_.sessions(); }

    const std::map<std::string, BackgroundWork>& background() const { return background_; }

    const std::map<std::string, PendingApproval>& approvals() const { return approvals_; }

    const RepositoryWatch& repositories() const { return repositories_; }

    std::optional<std::string> repoRoot(const std::string& id) const;
    /// The uncommitted work that the session is shown.
    std::optional<RepoChanges> ownedChanges(const std::string& id) const;

    /// The model that the session's transcript names, if it was read.
    const ModelTag* transcriptModel(const std::string& id) const;
    std::optional<std::string> transcriptPath(const std::string& id) const;
    std::optional<std::string> subagentsFolder(const std::string& id) const;
    /// What the derivation is given for one session; valid until a source is read again.
    SessionInputs inputs(const std::string& id, Date now) const;
    /// Derives one session anew as of `now`, with the steps that led to the result.
    Derivation derive(const std::string& id, Date now) const;
    /// Whether the session can be alive, which is asked before it is derived.
    Liveness liveness(const std::string& id, Date now) const;
    /// False if the session has to leave the list: its agent has ended, or its client left a record behind.
    bool isLive(const std::string& id, Date now) const;

    // The steps of the loop.

    void reloadRecords();
    void reloadRegistry();
    void reloadAppInfo();
    void reloadTranscriptModels();
    void reloadSubtasks();
    void refreshApprovals();
    void refreshRepos();
    void refreshBackground();
    /// One second's work.
    void tick();
    /// Every source once, whatever its pace, and a rebuild.
    void refreshAll();
    /// Recomputes the list, and publishes it if it differs or `force` is set.
    void rebuild(bool force);

private:
    struct TranscriptModel {
        FileTime modified;
        ModelTag tag;
    };

    ModelTag readModel(const std::string& transcript, const FileStamp& stamp);
    void watch();
    void scheduleReload();
    std::vector<Session> build(Date now);
    SessionInputs inputsWithoutRepo(const std::string& id, Date now) const;
    void notifyNewWaiters(const std::vector<Session>& list) const;
    std::vector<std::string> justFinished(const std::vector<Session>& list) const;
    void checkFinished(const std::vector<std::string>& ids);
    void assignSubtasks(SubtaskMap subtasks);
    std::vector<ApprovalSubject> approvalSubjects() const;
    RepositoryCheck repositoryCheck(const std::string& root) const;
    void startCheck(const std::string& root);
    RootOf rootOf() const;
    std::vector<BackgroundRequest> backgroundRequests() const;
    void takeBackground(std::map<std::string, BackgroundWork> found);
    void publish(std::vector<Session> list);

    Paths paths_;
    SessionStoreServices services_;
    std::vector<std::string> statusFolders_;

    std::vector<Session> sessions_;
    SubtaskMap subtasks_;
    std::optional<std::string> expandedId_;
    sigc::signal<void()> sessionsChanged_;
    sigc::signal<void()> subtasksChanged_;

    std::map<std::string, StatusRecord> records_;
    StatusReader statusReader_;
    RegistryReader registryReader_;
    std::map<std::string, RegistryEntry> registry_;
    AppSessionReader appSessions_;
    std::map<std::string, TranscriptModel> transcriptModels_;
    SubtaskReader transcriptReader_;
    SubtaskList subtaskList_;
    ApprovalFinder approvalFinder_;
    std::map<std::string, PendingApproval> approvals_;
    std::map<std::string, BackgroundWork> background_;
    RepositoryWatch repositories_;
    /// Touched only by work on the scan queue, which keeps it alive.
    std::shared_ptr<BackgroundScanner> scanner_;
    bool scanInFlight_ = false;
    std::optional<SweepReport> sweep_;
    bool sweeping_ = false;
    sigc::signal<void()> sweepChanged_;
    FirstSeen firstSeen_;

    SessionRules rules_;
    bool builtOnce_ = false;
    std::int64_t ticks_ = 0;

    /// Ends with the store, so that a result that comes back later knows.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
    std::vector<Handle> watches_;
    Handle pendingReload_;
    Handle timer_;
};

} // namespace mimkins
