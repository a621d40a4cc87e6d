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

    void activate(const QDBusObjectPath& session, const QString& shortcut) { // NOLINT: a slot
        if (onActivated) {
            onActivated(session.path(), shortcut);
        }
    }

    void close() { // NOLINT: a slot
        if (onClosed) {
            onClosed();
        }
    }
};

} // namespace mimkins
