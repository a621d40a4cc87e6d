#include "Background/RandomTranscript.h"

#include <array>
#include <string_view>

namespace mimkins::test {

namespace {

using namespace std::string_view_literals;

constexpr std::array pieces{
    "\n"sv,
    "\n"sv,
    "\n"sv,
    "\n\n"sv,
    R"("timestamp":"2026-11-21T07:29:23.901Z")"sv,
    R"("timestamp":"2026-11-21T07:30:00Z",)"sv,
    R"("timestamp":"yesterday")"sv,
    "Command running in background with ID: b9tgkj2ob. Output"sv,
    "running in background with ID: aa1"sv,
    "background with ID"sv,
    "background wit"sv,
    R"(<task-id>b9tgkj2ob</task-id>\n<status>completed</status>)"sv,
    "<task-id>aa1</task-id>"sv,
    "<status>killed"sv,
    "<task-id>"sv,
    R"("name":"TaskStop","input":{"task_id":"b9tgkj2ob"})"sv,
    R"("name":"KillShell","input":{"x":1,"shell_id":"aa1"})"sv,
    R"("name":"KillBash","input":{"id":"aa2"})"sv,
    R"("name":"TaskStop","input":{)"sv,
    R"("tool_use_id":"toolu_1","content":")"sv,
    R"("tool_use_id":"toolu_2")"sv,
    "Scheduled one-shot task dd70 (30 14 2 12 *)"sv,
    "Scheduled recurring task dd71 (0 9 * * 1)"sv,
    "Scheduled recurring job 9bce (Every Monday at 9:00 AM)"sv,
    "Scheduled "sv,
    "Schedule"sv,
    R"("id":"toolu_1","name":"CronCreate","input":{"cron":"30 14 2 12 *","prompt":"Check the \"nightly\"\nbuild"})"sv,
    R"("id":"toolu_2","name":"CronCreate","input":{"cron":"","prompt":"a\q\n\"b")"sv,
    "CronCreate"sv,
    R"("name":"CronDelete","input":{"id":"dd70"})"sv,
    "CronDelet"sv,
    "KillShel"sv,
    "kgk-ScnCnDkSlSlB"sv,
    R"("timestamp":"")"sv,
    R"("timestamp":")"sv,
    R"("name":"KillShell","input":{)"sv,
    R"("name":"CronDelete","input":{)"sv,
    R"("task_id":"aa4","id":"dd71")"sv,
    "}"sv,
    ")"sv,
    R"("id":"toolu_3","name":"CronCreate","input":{"cron":"1 2 3 4 *","prompt":"short\)"sv,
    R"(","name":"CronCreate","input":{"cron":")"sv,
    R"("id":"toolu_4)"sv,
    R"(","prompt":"\n)"sv,
    R"("Scheduled one-shot task dd72 )"sv,
    "Scheduled one-shot job "sv,
    "</task-id>"sv,
    "\xff\xfe"sv,
    "\xe2\x80"sv,
    "\xc3\xa9"sv,
    "\xe2\x80\xa8"sv,
    "\0"sv,
    "plain words and more of them, forty bytes"sv,
    "x"sv,
};

} // namespace

std::string randomTranscript(std::mt19937& random, std::size_t count) {
    std::string file;
    for (std::size_t index = 0; index < count; ++index) {
        const std::string_view piece = pieces.at(random() % pieces.size());
        // Now and then only a part of the piece.
        constexpr unsigned whole = 7;
        const auto length = random() % 8 < whole ? piece.size() : random() % (piece.size() + 1);
        file += piece.substr(0, length);
    }
    return file;
}

} // namespace mimkins::test
