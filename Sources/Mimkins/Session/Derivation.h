#pragma once

#include "Model/ModelTag.h"
#include "Session/Facts.h"
#include "Session/Session.h"
#include "Session/Sources.h"

#include <optional>

namespace mimkins {

/// Everything that is known about one session. An absent source is a null pointer, and what it points to
/// stays its owner's.
struct SessionInputs {
    const StatusRecord* hook = nullptr;
    const RegistryEntry* registry = nullptr;
    const AppSessionInfo* app = nullptr;
    std::optional<Date> subtasksActive; ///< the latest sign of life of a running subtask
    std::optional<RepoChanges> repo;    ///< the uncommitted work that is this session's
    const BackgroundWork* background = nullptr;
    SessionRules rules;
    const ModelTag* transcriptModel = nullptr;
    const PendingApproval* approval = nullptr;
    std::int64_t runningSubtasks = 0;
    bool toolPending = false; ///< the transcript has a tool call without a result
    Date now;
};

/// Which source's word counts.
enum class Speaker { nobody, hook, registry };

/// Why that source speaks.
enum class SpeakerReason {
    noSource,
    onlySource,
    sourcesAgree,
    hookIsNewer,
    toolCallIsOpen, ///< the registry is newer, but the transcript shows that the wait goes on
    registryIsNewer,
};

/// The rule that settled the mood.
enum class MoodRule {
    none,
    hookState,
    silentTooLong,
    registryStatus,
    focusedSince,
    subtasksRunning,
    linesUncommitted,
    workInBackground,
    approvalFound,
};

/// Why a session isn't listed.
enum class Absence { listed, noSource, archived, outOfPlay, doneHidden };

/// The outcome of the derivation with the steps that led to it.
struct Derivation {
    std::optional<Session> session;
    Speaker speaker = Speaker::nobody;
    SpeakerReason speakerReason = SpeakerReason::noSource;
    MoodRule moodRule = MoodRule::none;
    std::optional<Mood> mood;         ///< what was settled, even if the session isn't listed then
    std::optional<Date> lastActivity; ///< as for the mood
    Absence absence = Absence::noSource;
};

/// Turns all that is known about a session into one value, or decides that it isn't listed. Pure: the same
/// inputs give the same result, and nothing is read.
Derivation deriveSession(const SessionInputs& inputs);

/// The mood that a status record alone gives; `lastActivity` is the last sign of life that counts against
/// silence.
Mood moodFromHook(const StatusRecord& hook, Date lastActivity, double stuckAfter, Date now);

} // namespace mimkins
