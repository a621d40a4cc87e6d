#include "HookInstaller/TracedCalls.h"

#include "Support/TemporaryFolder.h"

#include <map>
#include <sstream>
#include <utility>

namespace mimkins::test {

TracedCalls::TracedCalls(std::vector<std::string> program, std::string file)
    : program_(std::move(program)), file_(std::move(file)) {}

ProgramResult TracedCalls::run(const std::vector<std::string>& options) const {
    std::vector<std::string> words{"strace", "-o", file_};
    words.insert(words.end(), options.begin(), options.end());
    words.insert(words.end(), program_.begin(), program_.end());
    return runProgram({words, {}, "", ""});
}

ProgramResult TracedCalls::runKilledAt(const SystemCall& call) const {
    return run(
        {"-e", "trace=" + call.name, "-e",
         "inject=" + call.name + ":signal=SIGKILL:when=" + std::to_string(call.ordinal)}
    );
}

std::vector<SystemCall> TracedCalls::calls() const {
    std::istringstream lines(readWhole(file_));
    std::map<std::string, int> counts;
    std::vector<SystemCall> result;
    bool begun = false;
    for (std::string line; std::getline(lines, line);) {
        const std::string name = line.substr(0, line.find('('));
        if (name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789_") != std::string::npos) {
            continue;
        }
        const int ordinal = ++counts[name];
        if (begun && name != "exit_group") {
            result.push_back({name, ordinal});
        }
        begun = begun || line.find("operation-begins") != std::string::npos;
    }
    return result;
}

} // namespace mimkins::test
