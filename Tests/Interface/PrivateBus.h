#pragma once

#include "Support/TemporaryFolder.h"

#include <QFile>
#include <QProcess>
#include <QString>

namespace mimkins::test {

/// A message bus of the test's own, on which nothing is started by anybody else. It ends with this.
class PrivateBus {
public:
    PrivateBus() {
        QFile file(QString::fromStdString(folder_.path() + "/bus.conf"));
        if (file.open(QIODevice::WriteOnly)) {
            file.write(
                "<busconfig><listen>unix:dir=" + QByteArray::fromStdString(folder_.path()) +
                "</listen><auth>EXTERNAL</auth><policy context=\"default\"><allow send_destination=\"*\"/>"
                "<allow receive_sender=\"*\"/><allow own=\"*\"/><allow eavesdrop=\"true\"/></policy>"
                "</busconfig>"
            );
            file.close();
        }
        process_.start("dbus-daemon", {"--config-file=" + file.fileName(), "--nofork", "--print-address"});
        if (process_.waitForStarted() && process_.waitForReadyRead()) {
            address_ = QString::fromUtf8(process_.readLine()).trimmed();
        }
    }

    ~PrivateBus() {
        process_.kill();
        process_.waitForFinished();
    }

    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// Empty where no bus could be started.
    const QString& address() const { return address_; }

private:
    TemporaryFolder folder_;
    QProcess process_;
    QString address_;
};

} // namespace mimkins::test
