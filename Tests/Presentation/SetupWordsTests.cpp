#include "Presentation/SetupWords.h"

#include "Support/RunProgram.h"
#include "Support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace mimkins::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;
using Status = HookInstaller::Status;
using Button = SetupWords::Button;
using Action = SetupWords::Action;

constexpr std::array statuses{
    Status::connected, Status::needsUpdate, Status::notConnected, Status::noClaudeCode};

TEST(SetupWords, Welcome) {
    const auto words = SetupWords::of(Status::notConnected);
    EXPECT_EQ(words.heading, "Welcome to Mimkins");
    EXPECT_EQ(
        words.text,
        "A little pet for every Claude Code session, so you can see at a glance who's busy, who's "
        "done and who needs you."
    );
    EXPECT_TRUE(words.explains);
    EXPECT_EQ(words.pet, PetAction::waving);
    EXPECT_THAT(
        words.buttons,
        ElementsAre(
            Button{"Not now", Action::leave, false}, Button{"Connect Claude Code", Action::connect, true}
        )
    );
}

TEST(SetupWords, Update) {
    const auto words = SetupWords::of(Status::needsUpdate);
    EXPECT_EQ(words.heading, "Update the Claude Code connection");
    EXPECT_EQ(words.text, "Mimkins has moved its hook to a new home. One click points Claude Code at it.");
    EXPECT_TRUE(words.explains);
    EXPECT_EQ(words.pet, PetAction::waving);
    EXPECT_THAT(
        words.buttons,
        ElementsAre(
            Button{"Not now", Action::leave, false}, Button{"Update connection", Action::connect, true}
        )
    );
}

TEST(SetupWords, Connected) {
    const auto words = SetupWords::of(Status::connected);
    EXPECT_EQ(words.heading, "You're connected!");
    EXPECT_EQ(
        words.text, "Every Claude Code session now gets its own Mimkin. They'll pop up here as soon as a "
                    "session does something."
    );
    EXPECT_FALSE(words.explains);
    EXPECT_EQ(words.pet, PetAction::yourTurn);
    EXPECT_THAT(words.buttons, ElementsAre(Button{"Show my pets", Action::leave, true}));
}

TEST(SetupWords, WithoutTheClient) {
    const auto words = SetupWords::of(Status::noClaudeCode);
    EXPECT_EQ(words.heading, "Claude Code isn't installed yet");
    EXPECT_EQ(
        words.text, "Install Claude Code, then come back here to connect. Other agents can still use the "
                    "mimkin command."
    );
    EXPECT_FALSE(words.explains);
    EXPECT_EQ(words.pet, PetAction::waving);
    EXPECT_THAT(words.buttons, ElementsAre(Button{"Show my pets", Action::leave, true}));
}

TEST(SetupWords, OnePrimaryButtonAndItIsTheLast) {
    for (const auto status : statuses) {
        const auto buttons = SetupWords::of(status).buttons;
        for (std::size_t index = 0; index < buttons.size(); ++index) {
            EXPECT_EQ(buttons[index].primary, index + 1 == buttons.size());
        }
    }
}

TEST(SetupWords, Bullets) {
    EXPECT_THAT(
        SetupWords::bullets,
        ElementsAre(
            "Adds one small hook to Claude Code's settings. Your other hooks stay exactly as they are.",
            "Backs up settings.json first. Disconnect any time in Settings.",
            "Everything stays on this Mac. Nothing is sent anywhere."
        )
    );
    EXPECT_EQ(SetupWords::detailsTitle(false), "Exactly what changes");
    EXPECT_EQ(SetupWords::detailsTitle(true), "Hide the details");
}

TEST(ConnectionWords, ByStatus) {
    using Words = ConnectionWords;
    EXPECT_EQ(Words::of(Status::connected).state, "Connected to Claude Code");
    EXPECT_EQ(Words::of(Status::connected).button, (Words::Button{"Disconnect", Words::Action::disconnect}));
    EXPECT_EQ(Words::of(Status::needsUpdate).state, "Connected, but needs an update");
    EXPECT_EQ(Words::of(Status::needsUpdate).button, (Words::Button{"Update", Words::Action::connect}));
    EXPECT_EQ(Words::of(Status::notConnected).state, "Not connected to Claude Code");
    EXPECT_EQ(Words::of(Status::notConnected).button, (Words::Button{"Connect", Words::Action::connect}));
    EXPECT_EQ(Words::of(Status::noClaudeCode).state, "Claude Code isn't installed");
    EXPECT_FALSE(Words::of(Status::noClaudeCode).button);
}

TEST(ConnectionWords, OtherAgents) {
    EXPECT_EQ(ConnectionWords::otherAgents, "Other agents");
    EXPECT_EQ(
        ConnectionWords::promptHint,
        "Codex, Hermes, Gemini, Grok or any other agent that runs on this Mac can connect itself. Copy this "
        "prompt and paste it into the agent:"
    );
    EXPECT_EQ(ConnectionWords::promptPreview, "“Please connect yourself to Mimkins…”");
    EXPECT_EQ(ConnectionWords::commandHint, "Or add the mimkin command to your terminal yourself:");
    EXPECT_EQ(ConnectionWords::uninstall, "Uninstall Mimkins…");
    EXPECT_EQ(ConnectionWords::copyPrompt(false), "Copy setup prompt");
    EXPECT_EQ(ConnectionWords::copyPrompt(true), "Copied");
    EXPECT_EQ(ConnectionWords::copyCommand(false), "Copy");
    EXPECT_EQ(ConnectionWords::copyCommand(true), "Copied");
}

TEST(ConnectionWords, DotByStatus) {
    for (const auto& theme : PetTheme::all()) {
        EXPECT_EQ(dotColor(theme, Status::connected), theme.yourTurn);
        EXPECT_EQ(dotColor(theme, Status::needsUpdate), theme.waiting);
        EXPECT_EQ(dotColor(theme, Status::notConnected), theme.quiet);
        EXPECT_EQ(dotColor(theme, Status::noClaudeCode), theme.quiet);
    }
}

TEST(UninstallWords, ToTheLetter) {
    EXPECT_EQ(UninstallWords::title, "Uninstall Mimkins?");
    EXPECT_EQ(UninstallWords::confirm, "Uninstall");
    EXPECT_EQ(UninstallWords::cancel, "Cancel");
    EXPECT_EQ(
        UninstallWords::message(),
        "This removes Mimkins' hook from Claude Code (your other hooks stay), turns off Open at Login, and "
        "deletes its settings and status files. Then it quits and shows the app in Finder so you can drag it "
        "to the Bin.\n\nUp to three backups of your Claude Code settings stay in ~/.claude "
        "(settings.json.bak-mimkins-…), in case you need one. Delete them whenever you like."
    );
}

const AgentFiles systemWide{"/usr/share/mimkins/AGENT-SETUP.md", "/usr/share/mimkins/bin/mimkin"};

TEST(LinkCommand, ToTheLetter) {
    EXPECT_EQ(
        linkCommand(systemWide),
        R"(mkdir -p ~/.local/bin && ln -sf "/usr/share/mimkins/bin/mimkin" ~/.local/bin/mimkin)"
    );
}

TEST(LinkCommand, KeepsBlanksInsideTheQuotes) {
    EXPECT_THAT(
        linkCommand({"", "/opt/My Programs/mimkin"}), HasSubstr(R"(ln -sf "/opt/My Programs/mimkin" ~)")
    );
}

TEST(LinkCommand, MakesTheLinkWhateverThePathHolds) {
    for (const char* name : {"plain", "two words", "$HOME", "a\"b", "back\\slash", "`id`", "it's"}) {
        const TemporaryFolder home;
        const std::string program = home / (std::string("at ") + name + "/mimkin");
        writeFile(program, "");
        const auto result =
            runProgram({{"sh", "-c", linkCommand({"", program})}, {{"HOME", home.path()}}, "", home.path()});
        EXPECT_EQ(result.status, 0) << name << ": " << result.errors;
        EXPECT_EQ(std::filesystem::read_symlink(home / ".local/bin/mimkin"), program) << name;
    }
}

TEST(AgentPrompt, ToTheLetterWithAbsolutePaths) {
    EXPECT_EQ(
        agentPrompt(systemWide, "/home/kim"),
        "Please connect yourself to Mimkins, the Mac app on this computer that shows a little animated pet "
        "for each AI agent session (working, waiting for me, done).\n\n1. Read the setup guide: "
        "\"/usr/share/mimkins/AGENT-SETUP.md\" (online copy: https://mimkins.app/agent-setup.md).\n2. Follow "
        "it to hook Mimkins' command, \"/usr/share/mimkins/bin/mimkin\", into your own hooks or settings, so "
        "your pet updates by itself.\n3. Back up any config file before you change it, show me exactly what "
        "you'll change, and wait for my OK before saving.\n\nThis only works if you can run commands on this "
        "Mac. If you can't, just tell me."
    );
}

TEST(AgentPrompt, HomeIsWrittenAsAVariable) {
    const std::string prompt = agentPrompt(
        {"/home/kim/.local/share/mimkins/AGENT-SETUP.md", "/home/kim/My Programs/bin/mimkin"}, "/home/kim"
    );
    EXPECT_THAT(prompt, HasSubstr(R"("$HOME/.local/share/mimkins/AGENT-SETUP.md")"));
    EXPECT_THAT(prompt, HasSubstr(R"("$HOME/My Programs/bin/mimkin")"));
    EXPECT_THAT(prompt, Not(HasSubstr("/home/kim")));
}

TEST(AgentPrompt, EachPathIsLookedAtByItself) {
    const std::string prompt =
        agentPrompt({"/home/kim/AGENT-SETUP.md", "/usr/share/mimkins/bin/mimkin"}, "/home/kim");
    EXPECT_THAT(prompt, HasSubstr("\"$HOME/AGENT-SETUP.md\""));
    EXPECT_THAT(prompt, HasSubstr("\"/usr/share/mimkins/bin/mimkin\""));
}

TEST(AgentPrompt, NeighbourOfTheHomeIsNotInIt) {
    EXPECT_THAT(
        agentPrompt({"/home/kimberly/AGENT-SETUP.md", "/home/kim"}, "/home/kim"), Not(HasSubstr("$HOME"))
    );
}

} // namespace

} // namespace mimkins::test
