#include "Demo/Effects.h"
#include "Demo/Schedule.h"
#include "Session/Derivation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <map>
#include <set>

namespace mimkins::demo {

namespace {

using nlohmann::json;

const Paths paths("/home/demo");
const Date now{1'795'246'200};

std::vector<Effect> effectsAt(const Act& act, const Step& step, const Role& role) {
    return effectsOf({act, step, role, now});
}

template <typename Kind>
std::vector<Kind> only(const std::vector<Effect>& effects) {
    std::vector<Kind> result;
    for (const auto& effect : effects) {
        if (const auto* wanted = std::get_if<Kind>(&effect)) {
            result.push_back(*wanted);
        }
    }
    return result;
}

/// A session as the drawer would derive it while its day goes by: the few rules of the hook that the script
/// plays with, the registry, and what the transcript and the repository would show.
class Watched {
public:
    explicit Watched(const Role& role) : role_(role) {}

    void apply(const std::vector<Effect>& effects) {
        constexpr double secondsOfAStep = 10;
        now_ = now_ + secondsOfAStep;
        for (const auto& effect : effects) {
            std::visit([this](const auto& each) { take(each); }, effect);
        }
    }

    std::optional<Mood> mood() const {
        SessionInputs inputs;
        inputs.hook = record_ ? &*record_ : nullptr;
        inputs.registry = entry_ ? &*entry_ : nullptr;
        inputs.app = app_ ? &*app_ : nullptr;
        inputs.repo = RepoChanges{isEdited_ ? 1 : 0, 0, "main", {}};
        BackgroundWork work;
        work.commands = static_cast<std::int64_t>(shells_.size());
        inputs.background = &work;
        inputs.now = now_;
        return deriveSession(inputs).mood;
    }

private:
    void take(const HookEvent& effect) {
        const auto payload = json::parse(effect.payload);
        const std::string event = payload.at("hook_event_name");
        if (payload.contains("agent_id") || event == "SubagentStart" || event == "SubagentStop") {
            return;
        }
        if (event == "SessionEnd") {
            record_.reset();
            return;
        }
        StatusRecord record;
        record.id = payload.at("session_id");
        record.event = event;
        record.since = record.ts = now_.milliseconds();
        record.state = stateAfter(event);
        if (payload.contains("tool_name") && event != "PostToolUse") {
            record.tool = payload.at("tool_name");
        } else if (event == "Notification" && record_) {
            record.tool = record_->tool;
        }
        if (payload.contains("notification_type")) {
            record.notification = payload.at("notification_type");
        }
        record_ = record;
    }

    std::string stateAfter(const std::string& event) const {
        if (event == "PermissionRequest" || event == "Notification") {
            return "waiting";
        }
        if (event == "SessionStart") {
            return record_ ? "working" : "idle";
        }
        return event == "Stop" ? "done" : "working";
    }

    void take(const RegistryStatus& effect) {
        entry_ = RegistryEntry{};
        entry_->sessionId = role_.id;
        entry_->status = effect.status;
        entry_->updated = now_ + 0.001;
    }

    void take(const Document& effect) {
        if (effect.path == role_.desktopFile) {
            app_ = AppSessionInfo{};
            app_->lastFocused = now_;
        } else if (effect.path.rfind(role_.folder, 0) == 0) {
            isEdited_ = true;
        }
    }

    void take(const Commit&) { isEdited_ = false; }

    void take(const ShellStarts& effect) { shells_.insert(effect.key); }

    void take(const ShellEnds& effect) { shells_.erase(effect.key); }

    void take(const ClientEnds&) { entry_.reset(); }

    void take(const Backdate& effect) {
        record_->since -= effect.seconds * 1'000;
        record_->ts -= effect.silent ? effect.seconds * 1'000 : 0;
    }

    template <typename Other>
    void take(const Other&) {}

    const Role& role_;
    Date now_ = now;
    std::optional<StatusRecord> record_;
    std::optional<RegistryEntry> entry_;
    std::optional<AppSessionInfo> app_;
    std::set<std::string> shells_;
    bool isEdited_ = false;
};

/// How the moods of a member's day follow each other, act by act.
std::map<std::string, std::vector<std::string>> moodsByAct(std::size_t member) {
    const Role role = roleOf({member, 0}, paths);
    Watched session(role);
    std::map<std::string, std::vector<std::string>> result;
    for (const Act* act : dayOf(member)) {
        for (const auto& step : act->steps) {
            session.apply(effectsAt(*act, step, role));
            const auto mood = session.mood();
            const std::string name = mood ? std::string(caseName(*mood)) : "none";
            auto& moods = result[act->name];
            if (moods.empty() || moods.back() != name) {
                moods.push_back(name);
            }
        }
    }
    return result;
}

} // namespace

TEST(DemoMoods, AllAreReachedInADay) {
    std::set<std::string> reached;
    for (const auto& [act, moods] : moodsByAct(0)) {
        reached.insert(moods.begin(), moods.end());
    }
    for (const Mood mood : allMoods) {
        EXPECT_TRUE(reached.contains(std::string(caseName(mood)))) << caseName(mood);
    }
}

TEST(DemoMoods, FollowEachOtherAsTheActsTell) {
    using testing::ElementsAre;
    const auto moods = moodsByAct(0);
    EXPECT_THAT(moods.at("arrival"), ElementsAre("idle"));
    EXPECT_THAT(
        moods.at("repair"),
        ElementsAre("working", "snag", "working", "commitWaiting", "working", "yourTurn", "done")
    );
    EXPECT_THAT(
        moods.at("permission"),
        ElementsAre("working", "needsPermission", "working", "commitWaiting", "yourTurn")
    );
    EXPECT_THAT(moods.at("stuck"), ElementsAre("working", "stuck", "snag", "working", "yourTurn"));
    EXPECT_THAT(moods.at("dialog"), ElementsAre("working", "needsInput", "working", "yourTurn", "done"));
    EXPECT_THAT(moods.at("departure"), ElementsAre("none"));
}

TEST(DemoEffects, APromptIsToldToTheHookTheTranscriptAndTheRegistry) {
    const Role role = roleOf({0, 0}, paths);
    const Act& act = script().acts.front();
    const auto effects = effectsAt(act, act.steps.front(), role);
    const auto payload = json::parse(only<HookEvent>(effects).at(0).payload);
    EXPECT_EQ(payload.at("hook_event_name"), "UserPromptSubmit");
    EXPECT_EQ(payload.at("session_id"), role.id);
    EXPECT_EQ(payload.at("transcript_path"), role.transcript);
    EXPECT_EQ(payload.at("cwd"), role.folder);
    const auto line = only<Line>(effects).at(0);
    EXPECT_EQ(line.path, role.transcript);
    EXPECT_EQ(json::parse(line.text).at("timestamp"), "2026-11-21T07:30:00.000Z");
    EXPECT_EQ(only<RegistryStatus>(effects).at(0).status, "busy");
}

TEST(DemoEffects, ACallAndItsResultHaveOneId) {
    const Role role = roleOf({0, 0}, paths);
    for (const auto& act : script().acts) {
        std::set<std::string> open;
        for (const auto& step : act.steps) {
            for (const auto& line : only<Line>(effectsAt(act, step, role))) {
                const auto content = json::parse(line.text).at("message").at("content");
                if (!content.is_array()) {
                    continue;
                }
                for (const auto& piece : content) {
                    if (piece.at("type") == "tool_use") {
                        open.insert(piece.at("id").get<std::string>());
                    } else if (piece.at("type") == "tool_result") {
                        EXPECT_EQ(open.erase(piece.at("tool_use_id").get<std::string>()), 1U) << act.name;
                    }
                }
            }
        }
        EXPECT_TRUE(open.empty()) << act.name;
    }
}

TEST(DemoEffects, EveryShellEndsInItsAct) {
    const Role role = roleOf({0, 0}, paths);
    std::size_t started = 0;
    for (const auto& act : script().acts) {
        std::set<std::string> running;
        for (const auto& step : act.steps) {
            const auto effects = effectsAt(act, step, role);
            for (const auto& shell : only<ShellStarts>(effects)) {
                EXPECT_FALSE(shell.command.empty());
                running.insert(shell.key);
                ++started;
            }
            for (const auto& shell : only<ShellEnds>(effects)) {
                running.erase(shell.key);
            }
        }
        EXPECT_TRUE(running.empty()) << act.name;
    }
    EXPECT_GT(started, 5U);
}

TEST(DemoEffects, TextsHoldNoPlaceholders) {
    const Role role = roleOf({0, 0}, paths);
    for (const Act* act : dayOf(0)) {
        for (const auto& step : act->steps) {
            for (const auto& event : only<HookEvent>(effectsAt(*act, step, role))) {
                EXPECT_EQ(event.payload.find('$'), std::string::npos) << event.payload;
            }
        }
    }
}

TEST(DemoDocuments, BackdatingMovesSinceAloneUnlessSilent) {
    const std::string record = R"({"state":"done","since":1795246200000,"beforeSince":5,"ts":1795246200001})";
    EXPECT_EQ(
        backdated(record, {60, false}, now),
        R"({"state":"done","since":1795246140000,"beforeSince":5,"ts":1795246200001})"
    );
    EXPECT_EQ(
        backdated(record, {60, true}, now),
        R"({"state":"done","since":1795246140000,"beforeSince":5,"ts":1795246140000})"
    );
    EXPECT_EQ(backdated("{}", {60, true}, now), "{}");
}

TEST(DemoDocuments, SourceTextDiffersFromVersionToVersion) {
    const auto first = sourceText("a.cpp", "");
    const auto second = sourceText("a.cpp", "one");
    EXPECT_NE(first, second);
    EXPECT_NE(second, sourceText("a.cpp", "two"));
    EXPECT_EQ(std::count(first.begin(), first.end(), '\n'), std::count(second.begin(), second.end(), '\n'));
}

} // namespace mimkins::demo
