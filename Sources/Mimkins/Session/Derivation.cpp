#include "Session/Derivation.h"

#include "Base/DateText.h"
#include "Base/Text.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace mimkins {

namespace {

/// The registry's word for a hook's state.
std::string_view registryWord(std::string_view hookState) {
    if (hookState == "working") {
        return "busy";
    }
    return hookState == "waiting" ? "waiting" : "idle";
}

std::string counted(std::int64_t count, std::string_view noun) {
    return std::to_string(count) + " " + std::string(noun) + (count == 1 ? " running" : "s running");
}

/// One run of the derivation; the methods are its steps in order.
class Deriving {
public:
    explicit Deriving(const SessionInputs& inputs) : in_(inputs) {}

    Derivation run() {
        if (in_.hook == nullptr && in_.registry == nullptr) {
            return ended(Absence::noSource);
        }
        if (in_.app != nullptr && in_.app->archived) {
            return ended(Absence::archived);
        }
        gatherTimes();
        chooseSpeaker();
        moodOfSpeaker();
        if (examinesTurnEnd_) {
            markAsSeen();
            examineTurnEnd();
        }
        if (result_.speaker == Speaker::hook) {
            session_.tool = in_.hook->tool;
            session_.detail = in_.hook->detail;
        }
        applyApproval();
        result_.mood = session_.mood;
        result_.lastActivity = session_.lastActivity;
        if (const auto absence = whyNotListed(); absence != Absence::listed) {
            return ended(absence);
        }
        describe();
        result_.absence = Absence::listed;
        result_.session = std::move(session_);
        return std::move(result_);
    }

private:
    Derivation ended(Absence absence) {
        result_.absence = absence;
        return std::move(result_);
    }

    void gatherTimes() {
        session_.id = in_.hook != nullptr ? in_.hook->id : in_.registry->sessionId;
        std::optional<Date> latest;
        const auto consider = [&latest](Date date) { latest = latest ? std::max(*latest, date) : date; };
        if (in_.hook != nullptr) {
            hookTime_ = Date::fromMilliseconds(in_.hook->ts);
            consider(hookTime_);
        }
        if (in_.registry != nullptr) {
            consider(in_.registry->updated);
            busy_ = in_.registry->status == "busy";
        }
        if (in_.subtasksActive) {
            consider(*in_.subtasksActive);
        }
        session_.lastActivity = latest.value_or(in_.now);
    }

    void chooseSpeaker() {
        const auto speaks = [this](Speaker speaker, SpeakerReason reason) {
            result_.speaker = speaker;
            result_.speakerReason = reason;
        };
        if (in_.hook == nullptr) {
            speaks(Speaker::registry, SpeakerReason::onlySource);
        } else if (in_.registry == nullptr) {
            speaks(Speaker::hook, SpeakerReason::onlySource);
        } else if (registryWord(in_.hook->state) == in_.registry->status) {
            speaks(Speaker::hook, SpeakerReason::sourcesAgree);
        } else if (hookTime_ >= in_.registry->updated) {
            speaks(Speaker::hook, SpeakerReason::hookIsNewer);
        } else if (in_.hook->state == "waiting" && in_.registry->status == "idle" && in_.toolPending) {
            speaks(Speaker::hook, SpeakerReason::toolCallIsOpen);
        } else {
            speaks(Speaker::registry, SpeakerReason::registryIsNewer);
        }
    }

    void moodOfSpeaker() {
        if (result_.speaker == Speaker::hook) {
            // A session isn't stuck while a running subtask shows life; the registry's date doesn't count
            // here.
            const Date clock = in_.subtasksActive ? std::max(hookTime_, *in_.subtasksActive) : hookTime_;
            settle(moodFromHook(*in_.hook, clock, in_.rules.stuckAfter, in_.now), MoodRule::hookState);
            if (session_.mood == Mood::stuck) {
                result_.moodRule = MoodRule::silentTooLong;
            }
            session_.since = Date::fromMilliseconds(in_.hook->since);
            examinesTurnEnd_ = session_.mood == Mood::yourTurn;
            return;
        }
        session_.since = in_.registry->updated;
        if (in_.registry->status == "busy") {
            settle(Mood::working, MoodRule::registryStatus);
        } else if (in_.registry->status == "waiting") {
            settle(Mood::needsInput, MoodRule::registryStatus);
        } else {
            settle(Mood::yourTurn, MoodRule::registryStatus);
            examinesTurnEnd_ = true;
        }
    }

    void settle(Mood mood, MoodRule rule) {
        session_.mood = mood;
        result_.moodRule = rule;
    }

    /// Whether the user has seen a finished turn is read off the desktop client's focus stamp.
    void markAsSeen() {
        constexpr double slack = 1; // seconds by which the stamp may lie before the end of the turn
        if (in_.app != nullptr && in_.app->lastFocused && *in_.app->lastFocused >= session_.since - slack) {
            settle(Mood::done, MoodRule::focusedSince);
        }
    }

    void examineTurnEnd() {
        std::vector<std::string> parts;
        if (in_.runningSubtasks >= 1) {
            parts.push_back(counted(in_.runningSubtasks, "subtask"));
            subtasksSpoke_ = true;
        } else if (in_.repo && (in_.repo->added != 0 || in_.repo->removed != 0)) {
            settle(Mood::commitWaiting, MoodRule::linesUncommitted);
            message_ = uncommittedWords(*in_.repo);
            return;
        }
        const bool work =
            in_.background != nullptr && in_.background->commands + in_.background->scheduled >= 1;
        if (work) {
            addBackgroundWords(*in_.background, parts);
        }
        if (!work && !subtasksSpoke_) {
            return;
        }
        settle(Mood::background, subtasksSpoke_ ? MoodRule::subtasksRunning : MoodRule::workInBackground);
        message_ = text::join(parts, " · ");
    }

    static std::string uncommittedWords(const RepoChanges& repo) {
        std::string words = "+" + std::to_string(repo.added) + " −" + std::to_string(repo.removed);
        return repo.branch ? words + " on " + *repo.branch : words;
    }

    static void addBackgroundWords(const BackgroundWork& work, std::vector<std::string>& parts) {
        if (work.commands >= 1) {
            parts.push_back(counted(work.commands, "command"));
        }
        if (work.scheduled >= 1) {
            std::string words = std::to_string(work.scheduled) + " scheduled";
            if (work.nextFire) {
                words += ", next " + text::shortTime(*work.nextFire);
            }
            parts.push_back(std::move(words));
        }
    }

    void applyApproval() {
        if (in_.approval == nullptr || waitsOnUser(session_.mood)) {
            return;
        }
        session_.since = in_.approval->since;
        session_.tool = (in_.approval->subtaskId ? "Subtask " : "") + in_.approval->tool;
        session_.detail = in_.approval->detail;
        message_.reset();
        settle(Mood::needsPermission, MoodRule::approvalFound);
    }

    Absence whyNotListed() const {
        const bool staysForever = busy_ || waitsOnUser(session_.mood) || session_.mood == Mood::background;
        if (!staysForever && in_.now - session_.lastActivity > in_.rules.outOfPlayAfter) {
            return Absence::outOfPlay;
        }
        return session_.mood == Mood::done && !in_.rules.showDone ? Absence::doneHidden : Absence::listed;
    }

    void describe() {
        describePlace();
        session_.message = message_ ? message_ : spokenMessage();
        const ModelTag unknown;
        const ModelTag& transcript = in_.transcriptModel != nullptr ? *in_.transcriptModel : unknown;
        const auto& appEffort = in_.app != nullptr ? in_.app->effort : std::nullopt;
        const auto& appModel = in_.app != nullptr ? in_.app->model : std::nullopt;
        // The transcript outranks the hook for the model, the hook outranks the transcript for the effort.
        session_.effort =
            firstOf(appEffort, in_.hook != nullptr ? in_.hook->effort : std::nullopt, transcript.effort);
        session_.model =
            firstOf(appModel, transcript.model, in_.hook != nullptr ? in_.hook->model : std::nullopt);
        if (in_.hook != nullptr) {
            session_.agent = in_.hook->agent;
            session_.openLink = in_.hook->open;
        }
        session_.supervising = subtasksSpoke_ && in_.approval == nullptr;
    }

    void describePlace() {
        const auto& registryFolder = in_.registry != nullptr ? in_.registry->cwd : std::nullopt;
        const auto& hookFolder = in_.hook != nullptr ? in_.hook->cwd : std::nullopt;
        session_.folder = registryFolder ? registryFolder : hookFolder;
        if (registryFolder) {
            session_.project = text::lastPathComponent(*registryFolder);
        } else {
            session_.project = in_.hook != nullptr ? in_.hook->project.value_or("?") : "?";
        }
        session_.title = firstNonEmpty(
            in_.app != nullptr ? in_.app->title : std::nullopt,
            in_.registry != nullptr ? in_.registry->name : std::nullopt,
            in_.hook != nullptr ? in_.hook->title : std::nullopt
        );
        session_.localId = in_.registry != nullptr ? in_.registry->localId : std::nullopt;
        if (!session_.localId && in_.app != nullptr) {
            session_.localId = in_.app->localId;
        }
    }

    std::optional<std::string> spokenMessage() const {
        if (session_.mood == Mood::needsPermission && in_.approval != nullptr) {
            return std::nullopt;
        }
        if (result_.speaker == Speaker::hook) {
            return in_.hook->message;
        }
        return in_.registry != nullptr ? in_.registry->waitingFor : std::nullopt;
    }

    using Text = std::optional<std::string>;

    static Text firstOf(const Text& first, const Text& second, const Text& third) {
        if (first) {
            return first;
        }
        return second ? second : third;
    }

    static Text firstNonEmpty(const Text& first, const Text& second, const Text& third) {
        for (const Text* candidate : {&first, &second, &third}) {
            if (*candidate && !(*candidate)->empty()) {
                return *candidate;
            }
        }
        return std::nullopt;
    }

    const SessionInputs& in_;
    Derivation result_;
    Session session_;
    Date hookTime_;
    bool busy_ = false;
    bool examinesTurnEnd_ = false;
    bool subtasksSpoke_ = false;
    std::optional<std::string> message_;
};

} // namespace

Mood moodFromHook(const StatusRecord& hook, Date lastActivity, double stuckAfter, Date now) {
    if (hook.state == "working") {
        // Silence goes first: a compaction that hangs reads as stuck.
        if (now - lastActivity > stuckAfter) {
            return Mood::stuck;
        }
        if (hook.event == "PreCompact") {
            return Mood::compacting;
        }
        return hook.event == "PostToolUseFailure" ? Mood::snag : Mood::working;
    }
    if (hook.state == "waiting") {
        if (hook.tool == "AskUserQuestion" || hook.notification == "elicitation_dialog") {
            return Mood::question;
        }
        return hook.tool == "ExitPlanMode" ? Mood::plan : Mood::needsPermission;
    }
    return hook.state == "done" ? Mood::yourTurn : Mood::idle;
}

Derivation deriveSession(const SessionInputs& inputs) {
    return Deriving(inputs).run();
}

} // namespace mimkins
