#include "SweepJson.h"

#include "SessionsJson.h"

namespace mimkins {

namespace {

using Json = nlohmann::ordered_json;

Json repositoryJson(const SweepReport::RepoLine& line) {
    Json json;
    json["root"] = line.root;
    json["added"] = line.changes.added;
    json["removed"] = line.changes.removed;
    json["branch"] = orNull(line.changes.branch);
    json["files"] = line.changes.files;
    json["sessionTitle"] = line.sessionTitle;
    json["localId"] = line.localId;
    return json;
}

Json scheduledJson(const SweepReport::ScheduledLine& line) {
    Json json;
    json["item"] = scheduledItemJson(line.item);
    json["sessionTitle"] = line.sessionTitle;
    json["localId"] = orNull(line.localId);
    return json;
}

Json runningJson(const SweepReport::RunningLine& line) {
    Json json;
    json["sessionTitle"] = line.sessionTitle;
    json["localId"] = orNull(line.localId);
    json["commands"] = line.commands;
    return json;
}

template <typename Line, typename MakeJson>
Json array(const std::vector<Line>& lines, MakeJson makeJson) {
    Json json = Json::array();
    for (const auto& line : lines) {
        json.push_back(makeJson(line));
    }
    return json;
}

} // namespace

nlohmann::ordered_json sweepJson(const SweepReport& report, bool allClear) {
    Json json;
    json["generated"] = jsonMilliseconds(report.generated);
    json["waiting"] = array(report.waiting, [](const Session& session) { return session.id; });
    json["repositories"] = array(report.repos, repositoryJson);
    json["scheduled"] = array(report.scheduled, scheduledJson);
    json["running"] = array(report.running, runningJson);
    json["allClear"] = allClear;
    return json;
}

} // namespace mimkins
