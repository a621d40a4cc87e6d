#include "Presentation/WhyWords.h"

#include "Base/DateText.h"
#include "Base/Text.h"
#include "Presentation/Elapsed.h"

namespace mimkins {

namespace {

using Source = WhyWords::Source;

std::string quoted(std::string_view word) {
    return "\"" + std::string(word) + "\"";
}

std::string counted(std::int64_t count, std::string_view noun) {
    return std::to_string(count) + " " + std::string(noun) + (count == 1 ? "" : "s");
}

std::string call(const std::optional<std::string>& tool, const std::optional<std::string>& detail) {
    std::vector<std::string> parts;
    for (const auto* part : {&tool, &detail}) {
        if (*part && !(*part)->empty()) {
            parts.push_back(**part);
        }
    }
    return text::join(parts, ": ");
}

Source statusRecord(const WhySubject& subject) {
    Source source{"statusRecord", "Status record", std::nullopt, std::nullopt, false};
    if (const auto* hook = subject.inputs.hook) {
        std::vector<std::string> parts{quoted(hook->state)};
        for (const auto& part : {hook->event, call(hook->tool, hook->detail), hook->message.value_or("")}) {
            if (!part.empty()) {
                parts.push_back(part);
            }
        }
        source.says = text::join(parts, " · ");
        source.time = Date::fromMilliseconds(hook->ts);
        source.speaks = subject.derivation.speaker == Speaker::hook;
    }
    return source;
}

Source registry(const WhySubject& subject) {
    Source source{"registry", "Client registry", std::nullopt, std::nullopt, false};
    if (const auto* entry = subject.inputs.registry) {
        source.says = quoted(entry->status);
        if (entry->waitingFor) {
            *source.says += " for " + *entry->waitingFor;
        }
        *source.says += " · process " + std::to_string(entry->pid);
        source.time = entry->updated;
        source.speaks = subject.derivation.speaker == Speaker::registry;
    }
    return source;
}

Source desktopClient(const WhySubject& subject) {
    Source source{"desktopClient", "Desktop client", std::nullopt, std::nullopt, false};
    if (const auto* app = subject.inputs.app) {
        const std::string focus = app->lastFocused ? "you looked at it" : "you haven't looked at it";
        source.says = app->archived ? "archived · " + focus : focus;
        source.time = app->lastFocused;
    }
    return source;
}

Source subtasks(const WhySubject& subject) {
    Source source{"subtasks", "Subtasks", std::nullopt, subject.inputs.subtasksActive, false};
    if (subject.inputs.runningSubtasks > 0) {
        source.says = std::to_string(subject.inputs.runningSubtasks) + " running";
    }
    return source;
}

Source repository(const WhySubject& subject) {
    Source source{"repository", "Repository", std::nullopt, subject.repositoryChecked, false};
    if (const auto& repo = subject.inputs.repo) {
        source.says = "+" + std::to_string(repo->added) + " −" + std::to_string(repo->removed);
        if (repo->branch) {
            *source.says += " on " + *repo->branch;
        }
    } else if (subject.repositoryChecked) {
        source.says = "nothing of this session to commit";
    }
    return source;
}

Source transcript(const WhySubject& subject) {
    Source source{"transcript", "Transcript", std::nullopt, std::nullopt, false};
    std::vector<std::string> parts;
    if (subject.inputs.toolPending) {
        parts.emplace_back("a tool call without a result");
    }
    if (const auto* model = subject.inputs.transcriptModel; model != nullptr && !model->summary().empty()) {
        parts.push_back(model->summary());
    }
    if (!parts.empty()) {
        source.says = text::join(parts, " · ");
    }
    return source;
}

Source background(const WhySubject& subject) {
    Source source{"background", "Background", std::nullopt, std::nullopt, false};
    if (const auto* work = subject.inputs.background) {
        source.says =
            counted(work->commands, "command") + " · " + std::to_string(work->scheduled) + " scheduled";
        if (work->nextFire) {
            *source.says += ", next " + text::shortTime(*work->nextFire);
        }
    }
    return source;
}

Source approval(const WhySubject& subject) {
    Source source{"approval", "Approval", std::nullopt, std::nullopt, false};
    if (const auto* found = subject.inputs.approval) {
        source.says = call(found->tool, found->detail) + " waits for your OK";
        if (found->subtaskId) {
            *source.says += ", from a subtask";
        }
        source.time = found->since;
    }
    return source;
}

std::string whoSpeaks(SpeakerReason reason, Speaker speaker) {
    switch (reason) {
    case SpeakerReason::noSource:
        break;
    case SpeakerReason::onlySource:
        return speaker == Speaker::hook ? "The status record speaks: the client registry has no entry."
                                        : "The client registry speaks: there is no status record.";
    case SpeakerReason::sourcesAgree:
        return "The status record speaks: the client registry agrees with it.";
    case SpeakerReason::hookIsNewer:
        return "The status record speaks: the client registry disagrees, and isn't newer.";
    case SpeakerReason::toolCallIsOpen:
        return "The status record speaks: the client registry is newer and says \"idle\", but the transcript "
               "has a tool call without a result.";
    case SpeakerReason::registryIsNewer:
        return "The client registry speaks: it disagrees with the status record, and is newer.";
    }
    return {};
}

/// What beside its state gave the status record's mood.
std::string addition(const StatusRecord& hook, Mood mood) {
    switch (mood) {
    case Mood::compacting:
    case Mood::snag:
        return " with the event " + quoted(hook.event);
    case Mood::question:
        return " with a question";
    case Mood::plan:
        return " with a plan";
    default:
        return {};
    }
}

std::string because(const WhySubject& subject, Mood mood) {
    const auto& inputs = subject.inputs;
    switch (subject.derivation.moodRule) {
    case MoodRule::none:
        break;
    case MoodRule::hookState:
        return "the status record says " + quoted(inputs.hook->state) + addition(*inputs.hook, mood);
    case MoodRule::silentTooLong:
        return "the status record says " + quoted(inputs.hook->state) +
               ", but there was no sign of life for longer than " + elapsed(inputs.rules.stuckAfter);
    case MoodRule::registryStatus:
        return "the client registry says " + quoted(inputs.registry->status);
    case MoodRule::focusedSince:
        return "the turn is over, and you have looked at it since";
    case MoodRule::subtasksRunning:
        return "the turn is over, but " + counted(inputs.runningSubtasks, "subtask") +
               (inputs.runningSubtasks == 1 ? " still runs" : " still run");
    case MoodRule::linesUncommitted:
        return "the turn is over, and it left uncommitted lines";
    case MoodRule::workInBackground:
        return "the turn is over, but commands or scheduled tasks are left";
    case MoodRule::approvalFound:
        return "a tool call waits for your OK, which outranks what the speaker says";
    }
    return {};
}

std::string whetherListed(const WhySubject& subject) {
    if (subject.liveness == Liveness::agentEnded) {
        return "Not listed: its agent's process has ended.";
    }
    if (subject.liveness == Liveness::leftBehind) {
        return "Not listed: its client has ended, and left the status record behind.";
    }
    const auto& inputs = subject.inputs;
    switch (subject.derivation.absence) {
    case Absence::listed:
        return "It is listed.";
    case Absence::noSource:
        return "Not listed: it has neither a status record nor a running client.";
    case Absence::archived:
        return "Not listed: it is archived in the desktop client.";
    case Absence::outOfPlay:
        return "Not listed: there was no sign of life for " +
               elapsed(inputs.now - subject.derivation.lastActivity.value_or(inputs.now)) +
               ", and sessions leave after " + elapsed(inputs.rules.outOfPlayAfter) + ".";
    case Absence::doneHidden:
        return "Not listed: it is done, and your settings hide sessions that are.";
    }
    return {};
}

std::string headlineOf(const WhySubject& subject) {
    std::string words = subject.id;
    if (const auto& session = subject.derivation.session) {
        words += " · " + session->petName(subject.shuffle) + " · " + session->project;
        words += session->title ? " · " + *session->title : "";
    }
    return words;
}

} // namespace

WhyWords WhyWords::of(const WhySubject& subject) {
    WhyWords words;
    words.headline = headlineOf(subject);
    words.listing = whetherListed(subject);
    const auto& derivation = subject.derivation;
    words.speaker = whoSpeaks(derivation.speakerReason, derivation.speaker);
    if (derivation.mood) {
        words.rule = std::string(label(*derivation.mood)) + ": " + because(subject, *derivation.mood) + ".";
    }
    words.sources = {statusRecord(subject), registry(subject),   desktopClient(subject), subtasks(subject),
                     repository(subject),   transcript(subject), background(subject),    approval(subject)};
    return words;
}

std::optional<std::string_view> speakerName(Speaker speaker) {
    switch (speaker) {
    case Speaker::nobody:
        break;
    case Speaker::hook:
        return "hook";
    case Speaker::registry:
        return "registry";
    }
    return std::nullopt;
}

std::optional<std::string_view> reasonName(SpeakerReason reason) {
    switch (reason) {
    case SpeakerReason::noSource:
        break;
    case SpeakerReason::onlySource:
        return "onlySource";
    case SpeakerReason::sourcesAgree:
        return "sourcesAgree";
    case SpeakerReason::hookIsNewer:
        return "hookIsNewer";
    case SpeakerReason::toolCallIsOpen:
        return "toolCallIsOpen";
    case SpeakerReason::registryIsNewer:
        return "registryIsNewer";
    }
    return std::nullopt;
}

std::optional<std::string_view> ruleName(MoodRule rule) {
    switch (rule) {
    case MoodRule::none:
        break;
    case MoodRule::hookState:
        return "hookState";
    case MoodRule::silentTooLong:
        return "silentTooLong";
    case MoodRule::registryStatus:
        return "registryStatus";
    case MoodRule::focusedSince:
        return "focusedSince";
    case MoodRule::subtasksRunning:
        return "subtasksRunning";
    case MoodRule::linesUncommitted:
        return "linesUncommitted";
    case MoodRule::workInBackground:
        return "workInBackground";
    case MoodRule::approvalFound:
        return "approvalFound";
    }
    return std::nullopt;
}

std::optional<std::string_view> absenceName(Liveness liveness, Absence absence) {
    if (!isLive(liveness)) {
        return liveness == Liveness::agentEnded ? "agentEnded" : "leftBehind";
    }
    switch (absence) {
    case Absence::listed:
        break;
    case Absence::noSource:
        return "noSource";
    case Absence::archived:
        return "archived";
    case Absence::outOfPlay:
        return "outOfPlay";
    case Absence::doneHidden:
        return "doneHidden";
    }
    return std::nullopt;
}

} // namespace mimkins
