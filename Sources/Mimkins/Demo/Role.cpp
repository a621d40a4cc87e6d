#include "Demo/Role.h"

#include "Base/StableSeed.h"
#include "Base/Text.h"

#include <array>

namespace mimkins::demo {

namespace {

struct Job {
    std::string_view project;
    std::string_view title;
};

constexpr std::array<Job, 12> jobs{{
    {"weather-station", "Read the wind sensor twice a second"},
    {"shop", "Move the basket to the new checkout"},
    {"compiler", "Constant folding for shifts"},
    {"blog", "Pick a layout for the archive"},
    {"archive", "Sort forty years of letters"},
    {"garden", "Plan the beds for spring"},
    {"star-chart", "Names of the southern stars"},
    {"choir", "Print the new songs"},
    {"bakery", "Count the loaves of a week"},
    {"library", "An index in several languages"},
    {"harbour", "Tides for the small boats"},
    {"museum", "Labels for the second floor"},
}};

constexpr std::array<std::string_view, 3> models{
    "claude-opus-4-8", "claude-sonnet-4-5-20250929", "claude-haiku-4-5-20251001"};
constexpr std::array<std::string_view, 4> efforts{"high", "medium", "xhigh", "low"};

constexpr std::size_t sharing = 4;

/// Every fourth session is a guest in the project of the one before it.
std::size_t host(std::size_t member) {
    return member % sharing == sharing - 1 ? member - 1 : member;
}

std::string projectName(std::size_t member) {
    const std::string name(jobs[member % jobs.size()].project);
    const std::size_t copy = member / jobs.size();
    return copy == 0 ? name : name + "-" + std::to_string(copy + 1);
}

std::string sessionId(const std::string& name) {
    std::string id = madeUpId(name, 36, hexadecimal);
    for (const std::size_t dash : {8U, 13U, 18U, 23U}) {
        id[dash] = '-';
    }
    id[14] = '4';
    return id;
}

} // namespace

std::string madeUpId(std::string_view text, std::size_t length, std::string_view alphabet) {
    std::string id;
    std::uint64_t value = 0;
    while (id.size() < length) {
        constexpr std::size_t charactersOfASeed = 8;
        if (id.size() % charactersOfASeed == 0) {
            value = stableSeed(std::string(text) + "#" + std::to_string(id.size()));
        }
        id += alphabet[value % alphabet.size()];
        value /= alphabet.size();
    }
    return id;
}

std::string projectsFolder(const Paths& paths) {
    return paths.home() + "/Projects";
}

Role roleOf(const Appearance& appearance, const Paths& paths) {
    const std::string name =
        "demo member " + std::to_string(appearance.member) + " day " + std::to_string(appearance.day);
    Role role;
    role.id = sessionId(name);
    role.title = jobs[appearance.member % jobs.size()].title;
    role.folder = projectsFolder(paths) + "/" + projectName(host(appearance.member));
    const std::string stem = paths.clientProjects() + "/" + text::dashed(role.folder) + "/" + role.id;
    role.transcript = stem + ".jsonl";
    role.subagents = stem + "/subagents";
    role.model = models[appearance.member % models.size()];
    role.effort = efforts[appearance.member % efforts.size()];
    role.desktopId = "local_" + role.id;
    role.desktopFile = paths.desktopSessions() + "/demo/crew/" + role.desktopId + ".json";
    return role;
}

} // namespace mimkins::demo
