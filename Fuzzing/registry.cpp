#include "SessionStore/RegistryReader.h"
#include "Support.h"
#include "Support/FakeProcesses.h"

// The client's registry: a folder of documents, and each by itself. What is read can be written and read
// again, only entries of living processes count, and of two for one session the later file's stands.

namespace {

using namespace mimkins;
using fuzz::require;

constexpr double millisecondsPerSecond = 1000;

std::string written(const RegistryEntry& entry, double updated, double started) {
    fuzz::DocumentWriter document;
    document.add("sessionId", entry.sessionId);
    document.add("hostSessionId", entry.localId);
    document.add("name", entry.name);
    document.add("cwd", entry.cwd);
    document.add("status", entry.status);
    document.add("waitingFor", entry.waitingFor);
    document.add("updatedAt", updated);
    document.add("startedAt", started);
    document.add("pid", static_cast<double>(entry.pid));
    return document.text();
}

void requireSoundEntry(const RegistryEntry& entry) {
    // Milliseconds that aren't a multiple of anything may round on their way; whole seconds don't.
    RegistryEntry plain = entry;
    plain.updated = Date{12};
    plain.started = Date{-34};
    const auto again =
        parseRegistryEntry(written(entry, 12 * millisecondsPerSecond, -34 * millisecondsPerSecond));
    require(again && *again == plain, "an entry reads back the same");
}

void requireSoundSession(const RegistryEntry& entry) {
    SessionInputs inputs;
    inputs.registry = &entry;
    inputs.now = fuzz::now;
    fuzz::requireSoundSession(inputs);
    // Its word against that of a status record from the present.
    StatusRecord hook;
    hook.state = "waiting";
    hook.id = entry.sessionId;
    hook.ts = fuzz::now.milliseconds();
    inputs.hook = &hook;
    fuzz::requireSoundSession(inputs);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto pieces = fuzz::pieces(fuzz::asText(data, size));
    test::FakeProcesses processes;
    std::map<std::string, RegistryEntry> expected;
    for (const auto piece : pieces) {
        const auto entry = parseRegistryEntry(piece);
        if (!entry) {
            continue;
        }
        requireSoundEntry(*entry);
        const bool isAlive = entry->pid % 2 != 0;
        if (isAlive && expected.empty()) {
            requireSoundSession(*entry);
        }
        if (isAlive) {
            processes.processes[entry->pid] = {};
            expected[entry->sessionId] = *entry;
        }
    }
    const auto files = fuzz::asFiles(pieces, "/registry");
    RegistryReader reader(files, processes);
    require(reader.read("/registry", fuzz::now) == expected, "the last living entry stands");
    require(reader.read("/registry", fuzz::now) == expected, "kept documents give the same entries");
    const test::FakeProcesses none;
    require(RegistryReader(files, none).read("/registry", fuzz::now).empty(), "the dead have no entry");
    return 0;
}
