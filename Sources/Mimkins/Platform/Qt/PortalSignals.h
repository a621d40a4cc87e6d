#pragma once

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <functional>

namespace mimkins {

/// Passes the signals of a desktop portal on; Qt delivers signals of a bus to named slots only.
class PortalSignals final : public QObject {
    Q_OBJECT

public:
    std::function<void(const QDBusMessage&)> onResponse;
    std::function<void(const QString& session, const QString& shortcut)> onActivated;
    std::function<void()> onClosed;

public Q_SLOTS:

    void respond(const QDBusMessage& message) { // NOLINT(readability-make-member-function-const): a slot
        if (onResponse) {
            onResponse(message);
        }
    }

    // The whole message, since Qt drops the first ones for a slot whose types it has yet to meet.
    void activate(const QDBusMessage& message) { // NOLINT(readability-make-member-function-const): a slot
        const auto words = message.arguments();
        if (onActivated && words.size() >= 2) {
            onActivated(words[0].value<QDBusObjectPath>().path(), words[1].toString());
        }
    }

    void close() { // NOLINT: a slot
        if (onClosed) {
            onClosed();
        }
    }
};

} // namespace mimkins
