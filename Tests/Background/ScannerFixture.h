#pragma once

#include "Background/BackgroundScanner.h"
#include "Background/MemoryFiles.h"
#include "Background/SharedOptions.h"
#include "Base/DateText.h"

#include <gtest/gtest.h>

#include <string>

#include <cstdlib>

/// What the tests of the scanner share: lines as a client writes them, and a scanner over files in memory.
namespace mimkins::test {

inline const std::string path = "/t.jsonl";
inline const Date now = text::parseIso8601("2026-11-21T08:00:00Z").value();
inline const Date processStart = text::parseIso8601("2026-11-21T07:00:00Z").value();

inline std::string timed(const std::string& content, const std::string& time = "2026-11-21T07:30:00.500Z") {
    return "{\"content\":\"" + content + "\",\"timestamp\":\"" + time + "\"}\n";
}

inline std::string started(const std::string& id, const std::string& time = "2026-11-21T07:30:00.500Z") {
    return timed("Command running in background with ID: " + id + ". Output is", time);
}

inline std::string finished(const std::string& id, const std::string& status = "completed") {
    return timed("<task-id>" + id + "</task-id>\\n<status>" + status + "</status>");
}

inline std::string cronCall(const std::string& call, const std::string& prompt) {
    return R"({"type":"tool_use","id":")" + call +
           R"(","name":"CronCreate","input":{"cron":"30 14 2 12 *","prompt":")" + prompt + "\"}}\n";
}

inline std::string cronResult(const std::string& call, const std::string& announcement) {
    return R"([{"tool_use_id":")" + call + R"(","type":"tool_result","content":")" + announcement +
           "\"}],\"timestamp\":\"2026-11-21T07:30:00Z\"}\n";
}

/// Scans one transcript, in UTC.
class Scanner : public testing::Test {
protected:
    explicit Scanner(const BackgroundScanner::Options& chosen = {})
        : options(chosen), scanner(files, chosen) {}

    void SetUp() override { ::setenv("TZ", "UTC", 1); }

    BackgroundWork scan(const std::string& bytes) {
        files.write(path, bytes);
        return scanner.scan(path, processStart, now);
    }

    const Tally& tally() const { return scanner.tallies().at(path); }

    MemoryFiles files;
    const BackgroundScanner::Options options;
    BackgroundScanner scanner;
};

} // namespace mimkins::test
