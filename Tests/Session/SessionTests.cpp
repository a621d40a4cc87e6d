#include "Base/Link.h"
#include "Session/DeepLink.h"
#include "Session/Session.h"

#include <gtest/gtest.h>

using namespace mimkins;

namespace {

Session inMood(Mood mood) {
    Session session;
    session.id = "s";
    session.mood = mood;
    return session;
}

Session usingTool(const char* tool) {
    auto session = inMood(Mood::working);
    session.tool = tool;
    return session;
}

} // namespace

TEST(Activity, VerbsOfTools) {
    EXPECT_EQ(usingTool("Bash").activity(), "Running");
    EXPECT_EQ(usingTool("Glob").activity(), "Reading");
    EXPECT_EQ(usingTool("NotebookEdit").activity(), "Editing");
    EXPECT_EQ(usingTool("WebSearch").activity(), "Browsing");
    EXPECT_EQ(usingTool("Task").activity(), "Delegating");
    EXPECT_EQ(usingTool("mcp__github__create_pr").activity(), "Using create");
    EXPECT_EQ(usingTool("mcp__github").activity(), "Using a tool");
    EXPECT_EQ(usingTool("mcp___").activity(), "Using a tool");
    EXPECT_EQ(usingTool("Skill").activity(), "Skill");
    EXPECT_EQ(inMood(Mood::working).activity(), "Thinking");
    auto session = usingTool("Bash");
    session.detail = "make";
    EXPECT_EQ(session.activity(), "Running: make");
    session.mood = Mood::stuck;
    EXPECT_EQ(session.activity(), "Running: make");
}

TEST(Activity, ByMood) {
    EXPECT_EQ(inMood(Mood::compacting).activity(), "Compacting the conversation");
    auto snag = inMood(Mood::snag);
    EXPECT_EQ(snag.activity(), std::nullopt);
    snag.detail = "make";
    EXPECT_EQ(snag.activity(), "make");
    snag.tool = "Bash";
    EXPECT_EQ(snag.activity(), "Bash failed: make");
    for (const Mood silent : {Mood::idle, Mood::question, Mood::plan, Mood::yourTurn, Mood::done}) {
        auto session = inMood(silent);
        session.tool = "Bash";
        session.message = "words";
        EXPECT_EQ(session.activity(), std::nullopt) << caseName(silent);
    }
    for (const Mood told : {Mood::needsInput, Mood::commitWaiting, Mood::background}) {
        auto session = inMood(told);
        session.message = "words";
        EXPECT_EQ(session.activity(), "words") << caseName(told);
    }
    auto permission = inMood(Mood::needsPermission);
    permission.message = "words";
    EXPECT_EQ(permission.activity(), "words");
    permission.tool = "Bash";
    EXPECT_EQ(permission.activity(), "Bash");
}

TEST(Labels, AreTheWordsPeopleRead) {
    EXPECT_EQ(label(Mood::stuck), "Maybe stuck");
    EXPECT_EQ(label(Mood::needsPermission), "Needs your OK");
    EXPECT_EQ(label(Mood::background), "In the background");
    EXPECT_EQ(caseName(Mood::commitWaiting), "commitWaiting");
    int waiting = 0;
    for (const Mood mood : allMoods) {
        waiting += waitsOnUser(mood) ? 1 : 0;
    }
    EXPECT_EQ(waiting, 4);
    EXPECT_EQ(static_cast<int>(Mood::needsPermission), 5);
    EXPECT_EQ(static_cast<int>(Mood::plan), 8);
}

TEST(JumpUrl, PrefersTheDesktopClient) {
    Session session;
    session.localId = "abc";
    session.openLink = "https://example.org/x";
    EXPECT_EQ(session.jumpURL(), "claude://code/continue?session=abc");
    session.localId = "no good";
    EXPECT_EQ(session.jumpURL(), std::nullopt);
    session.localId.reset();
    EXPECT_EQ(session.jumpURL(), "https://example.org/x");
}

TEST(JumpUrl, RefusesOtherSchemes) {
    Session session;
    for (const char* link :
         {"vscode://file/x", "javascript:alert(1)", "", "no link", "://x", "https://a b", "/tmp/x"}) {
        session.openLink = link;
        EXPECT_EQ(session.jumpURL(), std::nullopt) << link;
    }
    session.openLink = "FILE:///tmp/a";
    EXPECT_EQ(session.jumpURL(), "FILE:///tmp/a");
}

TEST(DeepLink, NewSession) {
    EXPECT_EQ(deep_link::newSession(std::nullopt, ""), "claude://code/new");
    EXPECT_EQ(deep_link::newSession(std::nullopt, std::nullopt), "claude://code/new");
    EXPECT_EQ(deep_link::newSession("", std::nullopt), "claude://code/new?folder=");
    EXPECT_EQ(
        deep_link::newSession("/a b", "x & y=é"), "claude://code/new?q=x%20%26%20y%3D%C3%A9&folder=/a%20b"
    );
}

TEST(Link, ReadsTheScheme) {
    EXPECT_EQ(linkScheme("HTTPS://x"), "https");
    EXPECT_EQ(linkScheme("a+b.c-1:rest"), "a+b.c-1");
    EXPECT_EQ(linkScheme("1a:rest"), std::nullopt);
    EXPECT_EQ(linkScheme("http://x/%zz"), std::nullopt);
    EXPECT_EQ(linkScheme("http://x/%2"), std::nullopt);
    EXPECT_EQ(linkScheme("http://x/%2F"), "http");
    EXPECT_EQ(linkScheme("http://x/\n"), std::nullopt);
}

TEST(EffortBoost, ByWord) {
    Session session;
    EXPECT_EQ(session.effortBoost(), 0);
    for (const char* word : {"max", "Ultra"}) {
        session.effort = word;
        EXPECT_EQ(session.effortBoost(), 2) << word;
    }
    for (const char* word : {"xhigh", "EXTRA-HIGH", "extra_high"}) {
        session.effort = word;
        EXPECT_EQ(session.effortBoost(), 1) << word;
    }
    for (const char* word : {"high", "low", "", "maximum"}) {
        session.effort = word;
        EXPECT_EQ(session.effortBoost(), 0) << word;
    }
}

TEST(PetName, IsStableAndShuffles) {
    Session session;
    session.id = "1c8daa90-88e5-4081-a7da-79023bf2a85c";
    EXPECT_EQ(session.petName(0), "Noodle");
    EXPECT_EQ(session.petName(1), "Pip");
    EXPECT_EQ(session.petName(18'446'744'073'709'551'615U), "Taco");
}
