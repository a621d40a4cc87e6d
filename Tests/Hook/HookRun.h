#pragma once

#include "Support/RunProgram.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mimkins::test {

/// One of the shells and one of the awks that the hook script has to work under.
struct HookPair {
    std::string shell; ///< "dash", "bash" or "busybox"
    std::string awk;   ///< "mawk", "gawk", "original-awk" or "busybox"
};

/// Every shell with every awk.
std::vector<HookPair> allHookPairs();

/// The pair's name, fit for a test's name.
std::string pairName(const HookPair& pair);

inline std::string pairNameOf(const testing::TestParamInfo<HookPair>& pair) {
    return pairName(pair.param);
}

/// A copy of the hook script in a throw-away support folder, run by one shell with one awk.
class HookRun {
public:
    explicit HookRun(const HookPair& pair = {"dash", "mawk"});

    /// Runs the script with the text on standard input.
    ProgramResult run(std::string_view input) const;
    /// Runs it and expects what holds for every run: it ends with 0, prints nothing, and leaves no hidden
    /// file.
    void feed(std::string_view input) const;

    void tell(const nlohmann::json& payload) const { feed(payload.dump()); }

    /// The names of the files in the sessions folder, hidden ones too, in order.
    std::vector<std::string> files() const;

    std::string recordPath(std::string_view name) const {
        return sessions() + "/" + std::string(name) + ".json";
    }

    /// The record under a name; nothing if there is none. A file that isn't JSON fails the test.
    std::optional<nlohmann::json> record(std::string_view name) const;
    /// The only record there is; nothing if there is none.
    std::optional<nlohmann::json> onlyRecord() const;
    void removeRecords() const;

    const std::string& sessions() const { return sessions_; }

    std::string script() const { return script_; }

    /// Puts a shell script before the programs that the hook calls by this name.
    void replaceProgram(const std::string& name, const std::string& text) const;

    /// Has the script call the program of this name wherever it names one by its path.
    void callByName(const std::string& path, const std::string& name) const;

    const std::vector<std::string>& shell() const { return shell_; }

    std::string path() const { return binaries_ + ":/usr/bin:/bin"; }

private:
    TemporaryFolder home_;
    std::string binaries_;
    std::string sessions_;
    std::string script_;
    std::vector<std::string> shell_;
};

/// By how many milliseconds the time of a record may be too early if its state goes on.
constexpr double clockError = 20;

/// The present time in milliseconds since 1970.
double nowInMilliseconds();

} // namespace mimkins::test
