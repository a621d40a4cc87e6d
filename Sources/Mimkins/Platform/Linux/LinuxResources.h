#pragma once

#include <optional>
#include <string>

namespace mimkins {

/// The folder of the resources that came with the running program, such as hook/status.sh; nothing if there
/// is none. See the other form for where it looks.
std::optional<std::string> resourceFolder();

/// The same for a program in the given folder: "../share/mimkins" beside it when installed, else the nearest
/// "Resources" in a folder above when run from the source tree. Only a folder whose hook/status.sh belongs to
/// the user or to root counts, so that nobody else can plant one in a folder that all may write to.
std::optional<std::string> resourceFolder(const std::string& programFolder);

/// The hook script that came with the running program; nothing if it isn't there.
std::optional<std::string> bundledHookScript();

/// What came with a program for other agents.
struct AgentResources {
    std::string guide;   ///< how an agent connects itself
    std::string command; ///< what it runs then
};

/// Absolute paths. A program without resources gets those at which an installed one has them; whether
/// anything is there isn't asked.
AgentResources agentResources(const std::string& programFolder);

/// Those of the running program.
AgentResources agentResources();

} // namespace mimkins
