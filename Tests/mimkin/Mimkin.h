#pragma once

#include "Base/Paths.h"
#include "Support/RunProgram.h"
#include "Support/TemporaryFolder.h"

#include <nlohmann/json.hpp>

#include <string>
#include <utility>
#include <vector>

namespace mimkins::test {

/// Runs the real `mimkin` command on a throw-away home.
class Mimkin {
public:
    ProgramResult run(std::vector<std::string> words) const {
        return runProgram(
            {commandLine(std::move(words)),
             {{"HOME", "/nonexistent"}, {"TZ", "UTC"}, {"LC_ALL", "en_GB.UTF-8"}},
             "",
             ""}
        );
    }

    /// The program and its arguments, for those who run it in another way.
    std::vector<std::string> commandLine(std::vector<std::string> words) const {
        words.insert(words.begin(), {MIMKINS_BINARY_DIR "/Sources/mimkin/mimkin", "--home", home_.path()});
        return words;
    }

    /// The document that a command printed; null if it isn't JSON.
    nlohmann::json json(std::vector<std::string> words) const {
        return nlohmann::json::parse(run(std::move(words)).output, nullptr, false);
    }

    Paths paths() const { return Paths(home_.path()); }

    const TemporaryFolder& home() const { return home_; }

private:
    TemporaryFolder home_;
};

} // namespace mimkins::test
