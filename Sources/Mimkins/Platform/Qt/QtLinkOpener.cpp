#include "Platform/Qt/QtLinkOpener.h"

#include "Base/Log.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QFileInfo>
#include <QStringList>
#include <QTimer>
#include <QUrl>

#include <functional>
#include <utility>

namespace mimkins {

namespace {

/// A file manager that has to be started first may take a while.
constexpr int longestWait = 5'000; // milliseconds

void openWithHandler(const QUrl& url) {
    if (!QDesktopServices::openUrl(url)) {
        log::write(
            log::Level::error, "panel", "open failed: no program takes " + url.toString().toStdString()
        );
    }
}

void openFolderOf(const QUrl& file) {
    openWithHandler(QUrl::fromLocalFile(QFileInfo(file.toLocalFile()).absolutePath()));
}

QDBusMessage fileManagerCall(const QString& method, const QUrl& item) {
    auto call = QDBusMessage::createMethodCall(
        "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", "org.freedesktop.FileManager1",
        method
    );
    call << QStringList{item.toString(QUrl::FullyEncoded)} << QString();
    return call;
}

} // namespace

/// Calls the file manager, or does something else where there is none.
void QtLinkOpener::askFileManager(
    const QString& method, const QUrl& item, const std::function<void()>& otherwise
) {
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        otherwise();
        return;
    }
    ++unanswered_;
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(fileManagerCall(method, item)), &context_);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [this, answer, otherwise] {
        if (answer->isError()) {
            otherwise();
        }
        answer->deleteLater();
        if (--unanswered_ == 0) {
            goOn();
        }
    });
}

void QtLinkOpener::whenAnswered(std::function<void()> work) {
    afterwards_ = std::move(work);
    if (unanswered_ == 0) {
        goOn();
    } else {
        QTimer::singleShot(longestWait, &context_, [this] { goOn(); });
    }
}

void QtLinkOpener::goOn() {
    if (const auto work = std::exchange(afterwards_, nullptr)) {
        work();
    }
}

void QtLinkOpener::openLink(const std::string& link) {
    openWithHandler(QUrl(QString::fromStdString(link)));
}

void QtLinkOpener::showFile(const std::string& link) {
    const QUrl file(QString::fromStdString(link));
    askFileManager("ShowItems", file, [file] { openFolderOf(file); });
}

void QtLinkOpener::showFolder(const std::string& folder) {
    const QString path = QString::fromStdString(folder);
    if (!QFileInfo(path).isDir()) {
        log::write(log::Level::error, "panel", "open failed: no folder at " + folder);
        return;
    }
    const QUrl url = QUrl::fromLocalFile(path);
    askFileManager("ShowFolders", url, [url] { openWithHandler(url); });
}

} // namespace mimkins
