#include "Base/StableSeed.h"
#include "Demo/Effects.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <cstdint>

namespace mimkins::demo {

namespace {

long long wholeMilliseconds(Date date) {
    return static_cast<long long>(std::floor(date.milliseconds()));
}

/// The text with the number behind a member's name replaced; unchanged without such a member.
std::string withNumber(std::string text, const std::string& member, long long number) {
    const std::string name = "\"" + member + "\":";
    const auto found = text.find(name);
    if (found == std::string::npos) {
        return text;
    }
    const auto begin = found + name.size();
    const auto end = text.find_first_not_of("0123456789.", begin);
    return text.replace(begin, end - begin, std::to_string(number));
}

} // namespace

std::string registryText(const Role& role, const Client& client, const RegistryStatus& status, Date now) {
    nlohmann::ordered_json json{
        {"pid", client.pid},
        {"sessionId", role.id},
        {"cwd", role.folder},
        {"startedAt", wholeMilliseconds(client.started)},
        {"kind", "interactive"},
        {"entrypoint", "cli"},
        {"name", role.title},
        {"status", status.status},
        {"updatedAt", wholeMilliseconds(now)},
        {"statusUpdatedAt", wholeMilliseconds(now)}};
    if (status.waitingFor) {
        json["waitingFor"] = *status.waitingFor;
    }
    return json.dump();
}

std::string backdated(const std::string& record, const Backdate& backdate, Date now) {
    const long long then = wholeMilliseconds(now - backdate.seconds);
    auto text = withNumber(record, "since", then);
    return backdate.silent ? withNumber(std::move(text), "ts", then) : text;
}

std::string sourceText(const std::string& name, const std::string& version) {
    constexpr std::uint64_t lines = 60;
    constexpr std::uint64_t longestStep = 9;
    const std::uint64_t seed = stableSeed(version);
    const std::uint64_t step = 2 + seed % longestStep;
    std::string text = "// " + name + "\n";
    for (std::uint64_t line = 1; line <= lines; ++line) {
        text += "line " + std::to_string(line);
        // Versions differ in how many lines they stand, so that each change has a size of its own.
        if (!version.empty() && line % step == 0) {
            text += ": " + version;
        }
        text += "\n";
    }
    return text;
}

} // namespace mimkins::demo
