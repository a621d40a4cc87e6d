#include "HookInstaller/HookEntries.h"
#include "HookInstaller/SettingsText.h"

#include <gtest/gtest.h>

#include <string>

namespace mimkins::test {

namespace {

const Paths paths("/home/me");
const std::string ours = "/home/me/Library/Application Support/Mimkins/hook/status.sh";

std::string stripped(std::string_view text) {
    auto root = parseSettings(text);
    strip(root, paths);
    return serialiseSettings(root);
}

std::string normal(std::string_view text) {
    return serialiseSettings(parseSettings(text));
}

/// JSON text in which OURS stands for an entry of ours and THEIRS for one of another tool.
std::string settings(std::string text) {
    const auto put = [&](const std::string& word, const std::string& value) {
        for (auto at = text.find(word); at != std::string::npos; at = text.find(word, at + value.size())) {
            text.replace(at, word.size(), value);
        }
    };
    put("OURS", R"({"type":"command","command":"\")" + ours + R"(\"","timeout":5})");
    put("THEIRS", R"({"type":"command","command":"other"})");
    return text;
}

TEST(HookEntries, namesTheEventsInOrder) {
    std::string joined;
    for (const auto event : hookEvents) {
        joined += std::string(event) + " ";
    }
    EXPECT_EQ(
        joined, "SessionStart UserPromptSubmit PreToolUse PostToolUse PostToolUseFailure PermissionRequest "
                "Notification PreCompact Stop SessionEnd "
    );
}

TEST(HookEntries, knowsItsScripts) {
    EXPECT_EQ(
        knownScripts(paths), (std::set<std::string>{
                                 ours, "/home/me/Library/Application Support/Zorbly/hook/status.sh",
                                 "/home/me/Developer/Zorbly/hook/status.sh"})
    );
    EXPECT_EQ(currentHookCommand(paths), "\"" + ours + "\"");
}

TEST(HookEntries, recognisesEverySpelling) {
    const std::string rest = "Library/Application Support/Mimkins/hook/status.sh";
    for (const std::string& bare :
         {ours, "~/" + rest, "$HOME/" + rest, "${HOME}/" + rest,
          std::string("~/Library/Application Support/Zorbly/hook/status.sh"),
          std::string("$HOME/Developer/Zorbly/hook/status.sh")}) {
        for (const std::string& command :
             {bare, "\"" + bare + "\"", "'" + bare + "'", " \t\"" + bare + "\"\t ", "\t" + bare}) {
            EXPECT_TRUE(isOurs(command, paths)) << command;
        }
    }
}

TEST(HookEntries, leavesOtherCommandsAlone) {
    for (const std::string& command :
         {std::string(),
          std::string("\""),
          std::string("\"\""),
          std::string("'"),
          std::string(" "),
          "\"" + ours + "\" --verbose",
          ours + " x",
          "sh " + ours,
          "sh -c '" + ours + "'",
          ours + "\n",
          "\n" + ours,
          "\"\"" + ours + "\"\"",
          "\"" + ours + "'",
          "\"" + ours,
          "\" " + ours + "\"",
          ours + ".bak",
          "/x" + ours,
          std::string("~/hook/status.sh"),
          std::string("/home/me/Library/Application Support/mimkins/hook/status.sh"),
          std::string("~me/Library/Application Support/Mimkins/hook/status.sh"),
          std::string("$HOMELibrary/Application Support/Mimkins/hook/status.sh")}) {
        EXPECT_FALSE(isOurs(command, paths)) << command;
    }
}

TEST(HookEntries, stripsFromAMixedGroupOnlyItsOwn) {
    EXPECT_EQ(
        stripped(settings(R"({"hooks":{"Stop":[{"matcher":"Bash","hooks":[THEIRS,OURS],"note":1}]}})")),
        normal(settings(R"({"hooks":{"Stop":[{"matcher":"Bash","hooks":[THEIRS],"note":1}]}})"))
    );
}

TEST(HookEntries, dropsGroupsEventsAndTheKeyThatHeldNothingElse) {
    EXPECT_EQ(
        stripped(settings(
            R"({"hooks":{"Stop":[{"hooks":[OURS]},{"hooks":[THEIRS]}],"Notification":[{"hooks":[OURS,OURS]}]}})"
        )),
        normal(settings(R"({"hooks":{"Stop":[{"hooks":[THEIRS]}]}})"))
    );
    EXPECT_EQ(
        stripped(settings(R"({"a":1,"hooks":{"Stop":[{"matcher":"x","hooks":[OURS]}]}})")),
        normal(R"({"a":1})")
    );
}

TEST(HookEntries, dropsEmptyEventsAndAnEmptyKey) {
    EXPECT_EQ(stripped(R"({"hooks":{}})"), "{}\n");
    EXPECT_EQ(stripped(R"({"hooks":{"Stop":[],"Mine":[]}})"), "{}\n");
    EXPECT_EQ(stripped(R"({"hooks":{"Stop":[],"Mine":3}})"), normal(R"({"hooks":{"Mine":3}})"));
}

TEST(HookEntries, keepsWhatItDoesNotUnderstand) {
    for (const std::string_view text :
         {R"({"hooks":[1]})", R"({"hooks":"x"})", R"({"hooks":null})", R"({})",
          R"({"hooks":{"Stop":{"hooks":[]},"A":"x","B":null}})", R"({"hooks":{"Stop":[1,"x",null,[]]}})",
          R"({"hooks":{"Stop":[{"matcher":"x"},{"hooks":{}},{"hooks":[]}]}})",
          R"({"hooks":{"Stop":[{"hooks":[1,{"command":5},{"type":"command"},"x"]}]}})"}) {
        EXPECT_EQ(stripped(text), normal(text));
    }
}

TEST(HookEntries, stripsAmongOddNeighbours) {
    EXPECT_EQ(
        stripped(settings(R"({"hooks":{"Custom":["x",{"hooks":[1,OURS,{"command":5}]},{"hooks":[OURS]}]}})")),
        normal(R"({"hooks":{"Custom":["x",{"hooks":[1,{"command":5}]}]}})")
    );
}

TEST(HookEntries, addsOneGroupPerEventBehindTheOthers) {
    auto root =
        parseSettings(settings(R"({"hooks":{"Stop":[{"hooks":[THEIRS]}],"Mine":[{"hooks":[THEIRS]}]}})"));
    addEntries(root, paths);
    std::string events;
    for (const auto event : hookEvents) {
        events += event == "Stop" ? "" : ",\"" + std::string(event) + R"(":[{"hooks":[OURS]}])";
    }
    EXPECT_EQ(
        serialiseSettings(root),
        normal(settings(
            R"({"hooks":{"Mine":[{"hooks":[THEIRS]}],"Stop":[{"hooks":[THEIRS]},{"hooks":[OURS]}])" + events +
            "}}"
        ))
    );
}

TEST(HookEntries, addingReplacesOnlyValuesOfTheWrongType) {
    SettingsObject fresh;
    addEntries(fresh, paths);
    for (const std::string_view text :
         {R"({"hooks":[1]})", R"({"hooks":"x"})", R"({"hooks":{"Stop":{"a":1}}})",
          R"({"hooks":{"Stop":[1,{"hooks":[]}],"SessionEnd":"x","PreCompact":null}})"}) {
        auto root = parseSettings(text);
        addEntries(root, paths);
        EXPECT_EQ(root, fresh) << text;
    }
}

TEST(HookEntries, addingTwiceIsAddingOnce) {
    auto once = parseSettings(settings(R"({"hooks":{"Stop":[{"hooks":[THEIRS,OURS]}]}})"));
    addEntries(once, paths);
    auto twice = once;
    addEntries(twice, paths);
    EXPECT_EQ(once, twice);
}

TEST(HookEntries, findsEntriesUnderEveryName) {
    const auto found = findEntries(
        parseSettings(settings(R"({"hooks":{"Old":[{"hooks":[OURS]}],"Stop":[{"hooks":[OURS]}]}})")), paths
    );
    EXPECT_EQ(found.events, (std::set<std::string>{"Old", "Stop"}));
    EXPECT_FALSE(found.stale);
}

TEST(HookEntries, looksOnlyIntoArraysOfObjects) {
    for (const std::string_view text :
         {R"({"hooks":{"Stop":[1,{"hooks":[OURS]}]}})", R"({"hooks":{"Stop":[{"hooks":[1,OURS]}]}})",
          R"({"hooks":{"Stop":{"hooks":[OURS]}}})", R"({"hooks":{"Stop":[{"hooks":OURS}]}})",
          R"({"hooks":[OURS]})"}) {
        EXPECT_TRUE(findEntries(parseSettings(settings(std::string(text))), paths).events.empty()) << text;
    }
}

} // namespace

} // namespace mimkins::test
