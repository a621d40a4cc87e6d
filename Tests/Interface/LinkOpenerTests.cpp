// What is asked of the desktop's file manager. Each case runs in a process of its own with a bus of its own,
// so that no real file manager is ever asked.

#include "Platform/Qt/QtLinkOpener.h"

#include "Support/RunProgram.h"
#include "Support/TemporaryFolder.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QDesktopServices>
#include <QTest>
#include <QTextBrowser>

#include <gmock/gmock.h>

#include <filesystem>

namespace mimkins::test {

namespace {

/// Notes what it is asked, and answers when it is told to.
class FakeFileManager final : public QDBusVirtualObject {
public:
    FakeFileManager() : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, "file manager")) {
        bus_.registerVirtualObject("/org/freedesktop/FileManager1", this);
        bus_.registerService("org.freedesktop.FileManager1");
    }

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override {
        asked.push_back(message);
        return true;
    }

    void answer() { bus_.send(asked.back().createReply()); }

    std::vector<QDBusMessage> asked;

private:
    QDBusConnection bus_;
};

void runInASession(const std::string& test) {
    const TemporaryFolder home;
    const std::string self = std::filesystem::read_symlink("/proc/self/exe");
    const auto result = runProgram(
        {{"dbus-run-session", "--", self, "--gtest_also_run_disabled_tests",
          "--gtest_filter=InASession.DISABLED_" + test},
         {{"HOME", home.path()}, {"XDG_RUNTIME_DIR", home.path()}, {"QT_QPA_PLATFORM", "offscreen"}},
         "",
         ""}
    );
    if (result.status == 127) {
        GTEST_SKIP() << "dbus-run-session is missing; ./test installs it";
    }
    EXPECT_EQ(result.status, 0) << result.output << result.errors;
    EXPECT_THAT(result.output, testing::HasSubstr("[  PASSED  ] 1 test."));
}

TEST(LinkOpener, FileManagerShowsAFile) {
    runInASession("FileManagerShowsAFile");
}

TEST(LinkOpener, FolderOpensWithoutAFileManager) {
    runInASession("FolderOpensWithoutAFileManager");
}

TEST(InASession, DISABLED_FileManagerShowsAFile) {
    FakeFileManager manager;
    QtLinkOpener links;
    int ends = 0;
    links.whenAnswered([&ends] { ++ends; });
    EXPECT_EQ(ends, 1); // nothing was asked
    links.showFile("file:///opt/my%20programs/bin/mimkins");
    links.whenAnswered([&ends] { ++ends; });
    ASSERT_TRUE(QTest::qWaitFor([&manager] { return manager.asked.size() == 1; }));
    EXPECT_EQ(manager.asked[0].interface(), "org.freedesktop.FileManager1");
    EXPECT_EQ(manager.asked[0].member(), "ShowItems");
    EXPECT_EQ(
        manager.asked[0].arguments().value(0).toStringList(),
        QStringList("file:///opt/my%20programs/bin/mimkins")
    );
    EXPECT_EQ(ends, 1); // it is still at it
    manager.answer();
    EXPECT_TRUE(QTest::qWaitFor([&ends] { return ends == 2; }));
}

TEST(InASession, DISABLED_FolderOpensWithoutAFileManager) {
    QTextBrowser opened; // stands for the desktop's handler of folders
    QDesktopServices::setUrlHandler("file", &opened, "setSource");
    QtLinkOpener links;
    int ends = 0;
    links.showFile("file:///opt/mimkins/bin/mimkins");
    links.whenAnswered([&] {
        EXPECT_EQ(opened.source(), QUrl("file:///opt/mimkins/bin"));
        ++ends;
    });
    EXPECT_TRUE(QTest::qWaitFor([&ends] { return ends == 1; }));
    QDesktopServices::unsetUrlHandler("file");
}

} // namespace

} // namespace mimkins::test
