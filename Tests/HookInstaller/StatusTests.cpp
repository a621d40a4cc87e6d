#include "HookInstaller/InstallerTest.h"

#include <gmock/gmock.h>

namespace mimkins::test {

namespace {

using Status = HookInstaller::Status;

class StatusTest : public InstallerTest {};

TEST_F(StatusTest, noClaudeCodeWithoutTheFolder) {
    std::filesystem::remove_all(paths.clientFolder());
    EXPECT_EQ(installer.status(), Status::noClaudeCode);
    EXPECT_FALSE(std::filesystem::exists(paths.clientFolder()));
    EXPECT_FALSE(std::filesystem::exists(paths.support()));
}

TEST_F(StatusTest, notConnectedWithoutUsableSettings) {
    EXPECT_EQ(installer.status(), Status::notConnected);
    for (const std::string& text :
         {std::string(), std::string("x"), std::string("[]"), std::string("{}"),
          std::string(R"({"hooks":[]})"), std::string(R"({"hooks":{}})"), std::string("{\"a\":\"\xff\"}"),
          std::string(1'000'000, '['), withCommand("other")}) {
        write(text);
        EXPECT_EQ(installer.status(), Status::notConnected) << text.substr(0, 40);
        EXPECT_EQ(read(), text);
    }
    std::filesystem::remove(settings);
    std::filesystem::create_directory(settings);
    EXPECT_EQ(installer.status(), Status::notConnected);
}

TEST_F(StatusTest, connectedAfterConnecting) {
    installer.connect();
    EXPECT_EQ(installer.status(), Status::connected);
    EXPECT_EQ(name(installer.status()), "connected");
}

TEST_F(StatusTest, otherSpellingsNeedAnUpdate) {
    installer.connect();
    const std::string connected = read();
    const std::string rest = "Library/Application Support/Mimkins/hook/status.sh";
    const std::string current = "\\\"" + paths.hookScript() + "\\\"";
    const auto at = connected.find(current);
    for (const std::string& spelling :
         {"'" + paths.hookScript() + "'", paths.hookScript(), "~/" + rest, "'$HOME/" + rest + "'",
          "${HOME}/" + rest, " " + current, paths.formerHookScript(), paths.oldestHookScript()}) {
        auto text = connected;
        text.replace(at, current.size(), spelling);
        write(text);
        EXPECT_EQ(installer.status(), Status::needsUpdate) << spelling;
    }
    write(withCommand(paths.oldestHookScript()));
    EXPECT_EQ(name(installer.status()), "needsUpdate");
}

TEST_F(StatusTest, aMissingOrSurplusEventNeedsAnUpdate) {
    installer.connect();
    const auto root = parseSettings(read());
    auto missing = root;
    missing.at("hooks").object()->erase("PreCompact");
    write(serialiseSettings(missing));
    EXPECT_EQ(installer.status(), Status::needsUpdate);
    auto surplus = root;
    (*surplus.at("hooks").object())["Retired"] = root.at("hooks").object()->at("Stop");
    write(serialiseSettings(surplus));
    EXPECT_EQ(installer.status(), Status::needsUpdate);
}

TEST_F(StatusTest, anotherScriptNeedsAnUpdate) {
    installer.connect();
    writeFile(bundled, "#!/bin/sh\n# newer\n");
    EXPECT_FALSE(installer.scriptIsCurrent());
    EXPECT_EQ(installer.status(), Status::needsUpdate);
    installer.installScript();
    EXPECT_EQ(installer.status(), Status::connected);
    std::filesystem::remove(paths.hookScript());
    EXPECT_FALSE(installer.scriptIsCurrent());
    EXPECT_EQ(installer.status(), Status::needsUpdate);
}

TEST_F(StatusTest, withoutABundledScriptEveryScriptIsCurrent) {
    std::filesystem::remove(bundled);
    EXPECT_EQ(installer.bundledScript(), std::nullopt);
    EXPECT_TRUE(installer.scriptIsCurrent());
    EXPECT_TRUE(HookInstaller(paths, std::nullopt, files).scriptIsCurrent());
}

TEST_F(StatusTest, aCommandWithAnArgumentIsNotOurs) {
    const std::string text = withCommand("\"" + paths.hookScript() + "\" x");
    write(text);
    EXPECT_EQ(installer.status(), Status::notConnected);
    installer.disconnect();
    EXPECT_EQ(read(), text);
}

TEST_F(StatusTest, namesEveryStatus) {
    EXPECT_EQ(name(Status::notConnected), "notConnected");
    EXPECT_EQ(name(Status::noClaudeCode), "noClaudeCode");
}

TEST_F(StatusTest, describesTheChange) {
    HookInstaller elsewhere(Paths("/home/me"), std::nullopt, files);
    EXPECT_EQ(
        elsewhere.changeSummary(),
        "Adds one small hook to ~/.claude/settings.json for these Claude Code events: SessionStart, "
        "UserPromptSubmit, PreToolUse, PostToolUse, PostToolUseFailure, PermissionRequest, Notification, "
        "PreCompact, Stop, SessionEnd. It runs ~/Library/Application Support/Mimkins/hook/status.sh, takes "
        "about 10 ms, never blocks Claude, and only writes small status files on this Mac. Your other hooks "
        "stay exactly as they are, and settings.json is backed up first."
    );
}

} // namespace

} // namespace mimkins::test
