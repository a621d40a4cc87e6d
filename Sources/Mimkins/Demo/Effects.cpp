#include "Demo/Effects.h"

#include "Demo/ClientText.h"

#include <algorithm>

namespace mimkins::demo {

namespace {

using Effects = std::vector<Effect>;
using Json = ClientText::Json;

/// What every kind of effect is made from.
struct Stage {
    explicit Stage(const Scene& whole) : scene(whole), text(whole) {}

    HookEvent hook(std::string_view event, const Json& members = Json::object()) const {
        return {text.event(event, members)};
    }

    HookEvent subagentHook(std::string_view event, const Json& members = Json::object()) const {
        return {text.subagentEvent(event, scene.step.of, members)};
    }

    Line line(std::string line) const { return {scene.role.transcript, std::move(line)}; }

    Line subagentLine(const std::string& key, std::string line) const {
        return {text.subagentFile(key, ".jsonl"), std::move(line)};
    }

    bool isCommand() const { return text.toolName() == "Bash"; }

    const Scene& scene;
    ClientText text;
};

const RegistryStatus busy{"busy", {}};

RegistryStatus waiting(const std::string& waitingFor) {
    return {"waiting", waitingFor};
}

HookEvent permissionReminder(const Stage& stage) {
    return stage.hook(
        "Notification",
        {{"message", "Claude needs your permission"}, {"notification_type", "permission_prompt"}}
    );
}

void addShell(Effects& effects, const Stage& stage) {
    if (stage.isCommand()) {
        effects.emplace_back(ShellStarts{stage.scene.step.key, stage.text.toolInput().value("command", "")});
    }
}

void addShellUnlessAsked(Effects& effects, const Stage& stage) {
    if (!needsApproval(stage.scene.act, stage.scene.step.key)) {
        addShell(effects, stage);
    }
}

/// True while a command of the act runs in the background.
bool commandIsLeft(const Scene& scene) {
    const auto& steps = scene.act.steps;
    return std::any_of(steps.begin(), steps.end(), [&scene](const Step& step) {
        return step.deed == Deed::backgroundEnds && step.at > scene.step.at &&
               opening(scene.act, step.key)->at < scene.step.at;
    });
}

Effects arrival(const Stage& stage) {
    const Role& role = stage.scene.role;
    return {
        Repository{role.folder}, ClientStarts{}, RegistryStatus{"idle", {}},
        stage.hook("SessionStart", {{"source", "startup"}, {"model", role.model}})};
}

Effects departure(const Stage& stage) {
    return {
        stage.hook("SessionEnd", {{"reason", "other"}}), ClientEnds{}, Removal{stage.scene.role.desktopFile}};
}

Effects prompt(const Stage& stage, const std::string& text) {
    return {
        stage.hook("UserPromptSubmit", {{"prompt", text}}), stage.line(stage.text.promptLine(text)), busy};
}

Effects call(const Stage& stage) {
    Effects effects{stage.line(stage.text.callLine()), stage.hook("PreToolUse", stage.text.toolMembers())};
    addShellUnlessAsked(effects, stage);
    return effects;
}

Effects result(const Stage& stage) {
    Effects effects;
    Json members = stage.text.toolMembers();
    members["tool_response"] = {{"stdout", stage.text.resultText()}, {"interrupted", false}};
    if (!stage.text.isInBackground()) {
        effects.emplace_back(ShellEnds{stage.scene.step.key});
    }
    effects.emplace_back(stage.line(stage.text.resultLine(ClientText::Outcome::success)));
    effects.emplace_back(stage.hook("PostToolUse", members));
    effects.emplace_back(busy);
    return effects;
}

Effects failure(const Stage& stage) {
    Json members = stage.text.toolMembers();
    members["error"] = stage.scene.step.text;
    members["is_interrupt"] = false;
    return {
        ShellEnds{stage.scene.step.key}, stage.line(stage.text.resultLine(ClientText::Outcome::failure)),
        stage.hook("PostToolUseFailure", members), busy};
}

Effects approvalAsked(const Stage& stage) {
    return {stage.hook("PermissionRequest", stage.text.toolMembers()), waiting("permission prompt")};
}

Effects elicitation(const Stage& stage) {
    const Json members{{"message", stage.scene.step.text}, {"notification_type", "elicitation_dialog"}};
    return {stage.hook("Notification", members), waiting("elicitation")};
}

Effects turnEnd(const Stage& stage) {
    const Json members{{"stop_hook_active", false}, {"last_assistant_message", stage.scene.step.text}};
    return {
        stage.line(stage.text.answerLine()), stage.hook("Stop", members),
        RegistryStatus{commandIsLeft(stage.scene) ? "shell" : "idle", {}}};
}

Effects interruption(const Stage& stage) {
    return {stage.line(stage.text.promptLine("[Request interrupted by user]")), RegistryStatus{"idle", {}}};
}

Effects subagentStart(const Stage& stage) {
    const Step& step = stage.scene.step;
    const Json members = stage.text.toolMembers();
    return {
        stage.line(stage.text.callLine()),
        stage.hook("PreToolUse", members),
        Document{stage.text.subagentFile(step.key, ".meta.json"), stage.text.subagentMetadata()},
        stage.subagentLine(step.key, stage.text.promptLine(step.text, step.key)),
        HookEvent{stage.text.subagentEvent("SubagentStart", step.key, Json::object())},
        stage.line(stage.text.resultLine(ClientText::Outcome::success)),
        stage.hook("PostToolUse", members)};
}

Effects subagentCall(const Stage& stage) {
    const std::string& agent = stage.scene.step.of;
    Effects effects{
        stage.subagentLine(agent, stage.text.callLine(agent)),
        stage.subagentHook("PreToolUse", stage.text.toolMembers())};
    addShellUnlessAsked(effects, stage);
    return effects;
}

Effects subagentResult(const Stage& stage) {
    const std::string& agent = stage.scene.step.of;
    return {
        ShellEnds{stage.scene.step.key},
        stage.subagentLine(agent, stage.text.resultLine(ClientText::Outcome::success, agent)),
        stage.subagentHook("PostToolUse", stage.text.toolMembers())};
}

Effects subagentAsks(const Stage& stage) {
    return {
        stage.subagentHook("PermissionRequest", stage.text.toolMembers()), permissionReminder(stage),
        waiting("permission prompt")};
}

Effects subagentEnd(const Stage& stage) {
    const std::string& agent = stage.scene.step.key;
    const Json members{{"last_assistant_message", stage.scene.step.text}};
    return {
        stage.subagentLine(agent, stage.text.answerLine(agent)),
        HookEvent{stage.text.subagentEvent("SubagentStop", agent, members)}};
}

Effects backgroundEnd(const Stage& stage) {
    Effects effects{ShellEnds{stage.scene.step.key}};
    const auto woken = prompt(stage, stage.text.taskNotification());
    effects.insert(effects.end(), woken.begin(), woken.end());
    return effects;
}

Effects edit(const Scene& scene) {
    const std::string version = scene.role.id + " " + scene.act.name + std::to_string(scene.step.at);
    return {Document{scene.role.folder + "/" + scene.step.name, sourceText(scene.step.name, version)}};
}

Effects grant(const Stage& stage) {
    Effects effects{busy};
    addShell(effects, stage);
    return effects;
}

/// What the agent and its subagents do by themselves.
Effects workEffects(const Stage& stage) {
    switch (stage.scene.step.deed) {
    case Deed::calls:
        return call(stage);
    case Deed::returns:
        return result(stage);
    case Deed::fails:
        return failure(stage);
    case Deed::sendsSubagent:
        return subagentStart(stage);
    case Deed::subagentCalls:
        return subagentCall(stage);
    case Deed::subagentReturns:
        return subagentResult(stage);
    case Deed::subagentAsks:
        return subagentAsks(stage);
    case Deed::subagentEnds:
        return subagentEnd(stage);
    case Deed::edits:
        return edit(stage.scene);
    case Deed::commits:
        return {Commit{stage.scene.role.folder, stage.scene.step.text}};
    default:
        return {};
    }
}

/// What goes on between the client and the user.
Effects talkEffects(const Stage& stage) {
    switch (stage.scene.step.deed) {
    case Deed::prompts:
        return prompt(stage, stage.scene.step.text);
    case Deed::asks:
        return approvalAsked(stage);
    case Deed::reminds:
        return {permissionReminder(stage)};
    case Deed::grants:
        return grant(stage);
    case Deed::elicits:
        return elicitation(stage);
    case Deed::opensDialog:
        return {waiting(stage.scene.step.text)};
    case Deed::closesDialog:
        return {busy};
    case Deed::interrupts:
        return interruption(stage);
    case Deed::stops:
        return turnEnd(stage);
    case Deed::backgroundEnds:
        return backgroundEnd(stage);
    default:
        return {};
    }
}

} // namespace

std::vector<Effect> effectsOf(const Scene& scene) {
    const Stage stage(scene);
    switch (scene.step.deed) {
    case Deed::arrives:
        return arrival(stage);
    case Deed::leaves:
        return departure(stage);
    case Deed::looks:
        return {Document{scene.role.desktopFile, stage.text.desktopMetadata()}};
    case Deed::compacts:
        return {stage.hook("PreCompact", {{"trigger", "auto"}})};
    case Deed::compacted:
        return {stage.hook("SessionStart", {{"source", "compact"}, {"model", scene.role.model}})};
    case Deed::waitsSince:
        return {Backdate{scene.step.seconds, false}};
    case Deed::silentSince:
        return {Backdate{scene.step.seconds, true}};
    default:
        break;
    }
    auto effects = workEffects(stage);
    return effects.empty() ? talkEffects(stage) : effects;
}

} // namespace mimkins::demo
