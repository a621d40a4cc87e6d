#pragma once

#include "Base/Date.h"
#include "Demo/Role.h"
#include "Demo/Script.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

/// What a step means to the files and processes of a demo home: values that say what is to be done.
namespace mimkins::demo {

/// The hook script is run with this document.
struct HookEvent {
    std::string payload;
};

/// A line is added to a file.
struct Line {
    std::string path;
    std::string text; ///< without the line end
};

/// A file is put in place whole.
struct Document {
    std::string path;
    std::string text;
};

struct Removal {
    std::string path;
};

/// The client's process begins or ends.
struct ClientStarts {};

struct ClientEnds {};

/// The registry tells another status.
struct RegistryStatus {
    std::string status;
    std::optional<std::string> waitingFor;
};

/// A shell of the client's runs a command until it is ended.
struct ShellStarts {
    std::string key;
    std::string command;
};

struct ShellEnds {
    std::string key;
};

/// The project's repository is there, with a first commit.
struct Repository {
    std::string folder;
};

struct Commit {
    std::string folder;
    std::string message;
};

/// The record says that its state began, and if it is `silent` was also written, so long ago.
struct Backdate {
    double seconds = 0;
    bool silent = false;
};

using Effect = std::variant<
    HookEvent, Line, Document, Removal, ClientStarts, ClientEnds, RegistryStatus, ShellStarts, ShellEnds,
    Repository, Commit, Backdate>;

/// A step on the stage: who does it, in which act, and when.
struct Scene {
    const Act& act;
    const Step& step;
    const Role& role;
    Date now;
};

/// What the step does, in this order.
std::vector<Effect> effectsOf(const Scene& scene);

/// A process of the client as its registry knows it.
struct Client {
    int pid = 0;
    Date started;
};

/// The registry's document.
std::string registryText(const Role& role, const Client& client, const RegistryStatus& status, Date now);

/// The text of a status record with its times moved as told; unchanged where it has none.
std::string backdated(const std::string& record, const Backdate& backdate, Date now);

/// A source file that differs from version to version in some of its lines. No version is the first one.
std::string sourceText(const std::string& name, const std::string& version);

} // namespace mimkins::demo
