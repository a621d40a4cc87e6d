#include "Platform/Qt/QtLinkOpener.h"

#include "Base/Log.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QFileInfo>
#include <QStringList>
#include <QUrl>

namespace mimkins {

namespace {

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

QDBusMessage showItemsCall(const QUrl& file) {
    auto call = QDBusMessage::createMethodCall(
        "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", "org.freedesktop.FileManager1",
        "ShowItems"
    );
    call << QStringList{file.toString(QUrl::FullyEncoded)} << QString();
    return call;
}

} // namespace

void QtLinkOpener::openLink(const std::string& link) {
    openWithHandler(QUrl(QString::fromStdString(link)));
}

void QtLinkOpener::showFile(const std::string& link) {
    const QUrl file(QString::fromStdString(link));
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        openFolderOf(file);
        return;
    }
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(showItemsCall(file)));
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, file] {
        if (answer->isError()) {
            openFolderOf(file);
        }
        answer->deleteLater();
    });
}

} // namespace mimkins
