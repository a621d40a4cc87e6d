#include "App/ConnectionPartOf.h"

#include "Platform/Linux/LinuxResources.h"
#include "Setup/ConnectionSettings.h"

namespace mimkins {

std::function<ConnectionPart(const CardLook&)>
connectionPartOf(Connection& connection, const std::string& home) {
    return [&connection, home](const CardLook& look) {
        const AgentResources resources = agentResources();
        auto* block = new ConnectionSettings({connection, {resources.guide, resources.command}, home}, look);
        return ConnectionPart{block, [block](const CardLook& next) { block->setLook(next); }};
    };
}

} // namespace mimkins
