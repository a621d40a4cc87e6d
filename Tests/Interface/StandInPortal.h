#pragma once

#include "Platform/Qt/PortalShortcut.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QStringList>

namespace mimkins::test {

/// Plays the desktop's portal on a private bus.
class StandInPortal final : public QDBusVirtualObject {
public:
    enum class Answer {
        grants,
        denies,         ///< the user says no
        leavesOut,      ///< binds, but not what was asked for
        offersNone,     ///< has no global shortcuts
        refusesSession, ///< answers the first request with no
        staysSilent,    ///< the user is still thinking
    };

    StandInPortal(const QString& address, Answer answer)
        : answer_(answer), name_("stand-in-" + QString::number(++count)),
          bus_(QDBusConnection::connectToBus(address, name_)) {
        registerPortalShortcuts();
        bus_.registerVirtualObject(path, this, QDBusConnection::SubPath);
        bus_.registerService(service);
    }

    ~StandInPortal() override { QDBusConnection::disconnectFromBus(name_); }

    StandInPortal(const StandInPortal&) = delete;
    StandInPortal& operator=(const StandInPortal&) = delete;

    /// As if the user had pressed the keys.
    void activate(const QString& shortcut, const QString& ofSession = {}) {
        auto signal = QDBusMessage::createSignal(path, shortcuts, "Activated");
        const QString from = ofSession.isEmpty() ? session : ofSession;
        signal << QVariant::fromValue(QDBusObjectPath(from)) << shortcut << qulonglong(1) << QVariantMap();
        bus_.send(signal);
    }

    void closeSession() {
        bus_.send(QDBusMessage::createSignal(session, "org.freedesktop.portal.Session", "Closed"));
    }

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override {
        calls.append(message.member());
        if (message.member() == "Register") {
            name = message.arguments().value(0).toString();
            bus_.send(message.createReply());
            return true;
        }
        if (answer_ == Answer::offersNone || message.interface() != shortcuts) {
            bus_.send(message.createErrorReply(QDBusError::UnknownMethod, "no such method"));
            return true;
        }
        if (message.member() == "CreateSession") {
            createSession(message);
        } else if (message.member() == "BindShortcuts") {
            bind(message);
        }
        return true;
    }

    QStringList calls;
    QString name;
    QString session;
    QString trigger;
    QString description;

private:
    static constexpr const char* service = "org.freedesktop.portal.Desktop";
    static constexpr const char* path = "/org/freedesktop/portal/desktop";
    static constexpr const char* shortcuts = "org.freedesktop.portal.GlobalShortcuts";
    static inline int count = 0;

    QString own(const QDBusMessage& message, const QString& kind, const QString& token) const {
        return QString("%1/%2/%3/%4").arg(path, kind, message.service().mid(1).replace('.', '_'), token);
    }

    void
    respond(const QDBusMessage& message, const QVariantMap& options, uint code, const QVariantMap& results) {
        const QString request = own(message, "request", options.value("handle_token").toString());
        bus_.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
        if (answer_ == Answer::staysSilent && message.member() == "BindShortcuts") {
            return;
        }
        auto signal = QDBusMessage::createSignal(request, "org.freedesktop.portal.Request", "Response");
        signal << code << results;
        bus_.send(signal);
    }

    void createSession(const QDBusMessage& message) {
        const auto options = qdbus_cast<QVariantMap>(message.arguments().value(0));
        session = own(message, "session", options.value("session_handle_token").toString());
        respond(message, options, answer_ == Answer::refusesSession ? 2 : 0, {{"session_handle", session}});
    }

    void bind(const QDBusMessage& message) {
        const auto asked = qdbus_cast<PortalShortcuts>(message.arguments().value(1));
        if (!asked.isEmpty()) {
            trigger = asked.front().options.value("preferred_trigger").toString();
            description = asked.front().options.value("description").toString();
        }
        const PortalShortcuts bound = answer_ == Answer::leavesOut ? PortalShortcuts() : asked;
        const auto options = qdbus_cast<QVariantMap>(message.arguments().value(3));
        respond(
            message, options, answer_ == Answer::denies ? 1 : 0, {{"shortcuts", QVariant::fromValue(bound)}}
        );
    }

    Answer answer_;
    QString name_;
    QDBusConnection bus_;
};

} // namespace mimkins::test
