#include "Base/Log.h"
#include "NextUp/OpenSession.h"

#include <gmock/gmock.h>

namespace mimkins::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RecordingOpener final : public LinkOpener {
public:
    void openLink(const std::string& link) override { calls.push_back("open " + link); }

    void showFile(const std::string& link) override { calls.push_back("show " + link); }

    void showFolder(const std::string& folder) override { calls.push_back("folder " + folder); }

    std::vector<std::string> calls;
};

class OpenSession : public testing::Test {
protected:
    OpenSession() {
        log::setSink([this](const log::Line& line) {
            lines.push_back(std::string(line.category) + ": " + std::string(line.text));
        });
        session.id = "one";
    }

    ~OpenSession() override { log::setSink({}); }

    Session session;
    RecordingOpener opener;
    std::vector<std::string> lines;
};

TEST_F(OpenSession, OpensTheDesktopClientsOwnSession) {
    session.localId = "abc";
    session.openLink = "https://example.org/";
    jump(session, opener);
    EXPECT_THAT(opener.calls, ElementsAre("open claude://code/continue?session=abc"));
    EXPECT_THAT(lines, ElementsAre("panel: click: opening claude://code/continue?session=abc"));
}

TEST_F(OpenSession, WithoutALinkIsOnlyLogged) {
    session.openLink = "vscode://file/x";
    jump(session, opener);
    EXPECT_THAT(opener.calls, IsEmpty());
    EXPECT_THAT(lines, ElementsAre("panel: click: one has no desktop session id"));
}

TEST_F(OpenSession, FileIsShownAndNotOpened) {
    session.openLink = "FILE:///tmp/a";
    jump(session, opener);
    EXPECT_THAT(opener.calls, ElementsAre("show FILE:///tmp/a"));
}

TEST_F(OpenSession, NoLinkDoesNothing) {
    openLink(std::nullopt, opener);
    EXPECT_THAT(opener.calls, IsEmpty());
}

TEST_F(OpenSession, NewSessionStartsInTheSameFolder) {
    session.folder = "/home/me/my shop";
    newSession(session, std::nullopt, opener);
    newSession(session, "Fix a & b", opener);
    EXPECT_THAT(
        opener.calls, ElementsAre(
                          "open claude://code/new?folder=/home/me/my%20shop",
                          "open claude://code/new?q=Fix%20a%20%26%20b&folder=/home/me/my%20shop"
                      )
    );
}

TEST_F(OpenSession, NewSessionWithoutAFolderStartsAnywhere) {
    newSession(session, std::nullopt, opener);
    newSession(session, "", opener);
    EXPECT_THAT(opener.calls, ElementsAre("open claude://code/new", "open claude://code/new"));
}

TEST_F(OpenSession, FolderIsShownIfItIsKnown) {
    showFolder(session, opener);
    EXPECT_THAT(opener.calls, IsEmpty());
    session.folder = "/home/me/shop";
    showFolder(session, opener);
    EXPECT_THAT(opener.calls, ElementsAre("folder /home/me/shop"));
}

} // namespace

} // namespace mimkins::test
