#include "Platform/Linux/LogSink.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <ctime>

namespace mimkins {

namespace {

std::string oneLine(std::string_view text) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(),
        [](char letter) { return (letter >= 0 && letter < ' ') || letter == '\x7f'; }, ' '
    );
    return line;
}

std::string_view priority(log::Level level) {
    switch (level) {
    case log::Level::standard:
        return "<5>"; // notice
    case log::Level::error:
        return "<3>"; // error
    case log::Level::fault:
        return "<2>"; // critical
    }
    return "<5>";
}

std::string_view levelWord(log::Level level) {
    switch (level) {
    case log::Level::standard:
        return "";
    case log::Level::error:
        return "error ";
    case log::Level::fault:
        return "fault ";
    }
    return "";
}

bool standardErrorIsJournal() {
    struct stat facts {};

    const char* stream = std::getenv("JOURNAL_STREAM");
    return stream != nullptr && ::fstat(STDERR_FILENO, &facts) == 0 &&
           isJournal(stream, {facts.st_dev, facts.st_ino});
}

/// One write for one line, so that lines of several threads don't mix.
void writeLine(std::string line) {
    line += '\n';
    while (::write(STDERR_FILENO, line.data(), line.size()) < 0 && errno == EINTR) {
    }
}

} // namespace

std::string journalLine(const log::Line& line) {
    return std::string(priority(line.level)) + std::string(log::subsystem) + " " + oneLine(line.category) +
           ": " + oneLine(line.text);
}

std::string terminalLine(const log::Line& line, Date now) {
    const double whole = std::floor(now.secondsSince1970);
    const auto milliseconds = static_cast<int>((now.secondsSince1970 - whole) * 1000);
    const auto seconds = static_cast<std::time_t>(whole);
    std::tm parts{};
    ::localtime_r(&seconds, &parts);
    std::array<char, 64> time{};
    const auto length = std::strftime(time.data(), time.size(), "%Y-%m-%d %H:%M:%S.", &parts);
    const auto digits = std::to_string(1000 + milliseconds).substr(1);
    return std::string(time.data(), length) + digits + " " + std::string(levelWord(line.level)) + "[" +
           oneLine(line.category) + "] " + oneLine(line.text);
}

bool isJournal(std::string_view journalStream, StreamIdentity file) {
    return journalStream == std::to_string(file.device) + ":" + std::to_string(file.inode);
}

std::function<void(const log::Line&)> standardErrorSink() {
    if (standardErrorIsJournal()) {
        return [](const log::Line& line) { writeLine(journalLine(line)); };
    }
    return [](const log::Line& line) {
        timespec now{};
        ::clock_gettime(CLOCK_REALTIME, &now);
        constexpr double second = 1e9; // nanoseconds
        writeLine(terminalLine(
            line, Date{static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / second}
        ));
    };
}

} // namespace mimkins
