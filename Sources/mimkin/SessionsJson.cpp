#include "SessionsJson.h"

#include "Base/Lookup.h"
#include "NextUp/NextUp.h"
#include "Presentation/SessionPet.h"
#include "Presentation/Summary.h"

#include <cmath>

namespace mimkins {

namespace {

using Json = nlohmann::ordered_json;

Json modelTagJson(const ModelTag& tag) {
    const auto parts = tag.parts();
    Json json;
    json["name"] = parts ? Json(parts->name) : Json(nullptr);
    json["family"] = parts && parts->family ? Json(std::string(rawWord(*parts->family))) : Json(nullptr);
    json["pips"] = tag.pips();
    json["summary"] = tag.summary();
    return json;
}

Json pendingJson(const PendingTool& tool) {
    Json json;
    json["name"] = tool.name;
    json["detail"] = orNull(tool.detail);
    json["command"] = orNull(tool.command);
    json["since"] = jsonMilliseconds(tool.since);
    return json;
}

Json subtaskJson(const Subtask& task) {
    Json json;
    json["id"] = task.id;
    json["type"] = task.type;
    json["description"] = task.description;
    json["running"] = task.running;
    json["started"] = jsonMilliseconds(task.started);
    json["lastActivity"] = jsonMilliseconds(task.lastActivity);
    json["tool"] = orNull(task.tool);
    json["detail"] = orNull(task.detail);
    json["activity"] = orNull(task.activity());
    json["model"] = orNull(task.model.model);
    json["effort"] = orNull(task.model.effort);
    json["pending"] = Json::array();
    for (const auto& tool : task.pending) {
        json["pending"].push_back(pendingJson(tool));
    }
    json["waitingForOK"] = task.waitingForOK;
    return json;
}

Json backgroundJson(const BackgroundWork& work) {
    Json json;
    json["commands"] = work.commands;
    json["scheduled"] = work.scheduled;
    json["nextFire"] = dateOrNull(work.nextFire);
    json["items"] = Json::array();
    for (const auto& item : work.items) {
        json["items"].push_back(scheduledItemJson(item));
    }
    return json;
}

Json approvalJson(const PendingApproval& approval) {
    Json json;
    json["tool"] = approval.tool;
    json["detail"] = orNull(approval.detail);
    json["since"] = jsonMilliseconds(approval.since);
    json["subtaskId"] = orNull(approval.subtaskId);
    return json;
}

void addOwnFields(Json& json, const Session& session, std::uint64_t shuffle) {
    json["id"] = session.id;
    json["mood"] = std::string(caseName(session.mood));
    json["moodLabel"] = std::string(label(session.mood));
    json["since"] = jsonMilliseconds(session.since);
    json["lastActivity"] = jsonMilliseconds(session.lastActivity);
    json["project"] = session.project;
    json["title"] = orNull(session.title);
    json["tool"] = orNull(session.tool);
    json["detail"] = orNull(session.detail);
    json["message"] = orNull(session.message);
    json["localId"] = orNull(session.localId);
    json["effort"] = orNull(session.effort);
    json["model"] = orNull(session.model);
    json["folder"] = orNull(session.folder);
    json["agent"] = orNull(session.agent);
    json["openLink"] = orNull(session.openLink);
    json["supervising"] = session.supervising;
    json["activity"] = orNull(session.activity());
    json["jumpURL"] = orNull(session.jumpURL());
    json["effortBoost"] = session.effortBoost();
    json["petName"] = session.petName(shuffle);
    json["petAction"] = name(petAction(session));
    json["modelTag"] = modelTagJson({session.model, session.effort});
}

Json repositoryJson(const SessionStore& store, const std::string& id) {
    const auto root = store.repoRoot(id);
    const auto changes = store.ownedChanges(id);
    if (!root || !changes) {
        return nullptr;
    }
    Json json;
    json["root"] = *root;
    json["added"] = changes->added;
    json["removed"] = changes->removed;
    json["branch"] = orNull(changes->branch);
    json["files"] = changes->files;
    return json;
}

Json sessionJson(const SessionStore& store, const Session& session, std::uint64_t shuffle) {
    Json json;
    addOwnFields(json, session, shuffle);
    json["repository"] = repositoryJson(store, session.id);
    const auto* work = lookup(store.background(), session.id);
    json["background"] = work != nullptr ? backgroundJson(*work) : Json(nullptr);
    const auto* approval = lookup(store.approvals(), session.id);
    json["approval"] = approval != nullptr ? approvalJson(*approval) : Json(nullptr);
    json["subtasks"] = Json::array();
    if (const auto* tasks = lookup(store.subtasks(), session.id)) {
        for (const auto& task : *tasks) {
            json["subtasks"].push_back(subtaskJson(task));
        }
    }
    return json;
}

} // namespace

std::string jsonText(const nlohmann::ordered_json& json, JsonLayout layout) {
    const int indentation = layout == JsonLayout::pretty ? 2 : -1;
    return json.dump(indentation, ' ', false, Json::error_handler_t::replace);
}

nlohmann::ordered_json jsonMilliseconds(Date date) {
    // Microseconds are as much as a double holds of a present date; beyond that there is only noise.
    constexpr double noise = 1000;
    constexpr double largestExact = 9e15;
    const double milliseconds = date.milliseconds();
    if (std::fabs(milliseconds) > largestExact / noise) {
        return milliseconds;
    }
    const double rounded = std::round(milliseconds * noise) / noise;
    return std::trunc(rounded) == rounded ? Json(static_cast<std::int64_t>(rounded)) : Json(rounded);
}

nlohmann::ordered_json orNull(const std::optional<std::string>& text) {
    return text ? Json(*text) : Json(nullptr);
}

nlohmann::ordered_json dateOrNull(const std::optional<Date>& date) {
    return date ? jsonMilliseconds(*date) : Json(nullptr);
}

nlohmann::ordered_json scheduledItemJson(const ScheduledItem& item) {
    Json json;
    json["id"] = item.id;
    json["fire"] = dateOrNull(item.fire);
    json["recurring"] = item.recurring;
    json["prompt"] = item.prompt;
    return json;
}

nlohmann::ordered_json sessionsJson(const SessionStore& store, Date at, std::uint64_t shuffle) {
    Json json;
    json["at"] = jsonMilliseconds(at);
    json["sessions"] = Json::array();
    for (const auto& session : store.sessions()) {
        json["sessions"].push_back(sessionJson(store, session, shuffle));
    }
    json["nextUp"] = Json::array();
    for (const auto& session : NextUp::queue(store.sessions())) {
        json["nextUp"].push_back(session.id);
    }
    json["summary"] = summary(store.sessions()).text;
    return json;
}

} // namespace mimkins
