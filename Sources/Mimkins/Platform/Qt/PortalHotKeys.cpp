#include "Platform/Qt/PortalHotKeys.h"

#include "Base/Log.h"
#include "Platform/Qt/PortalShortcut.h"
#include "Platform/Qt/PortalSignals.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>
#include <utility>

namespace mimkins {

namespace {

constexpr const char* service = "org.freedesktop.portal.Desktop";
constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* shortcutsInterface = "org.freedesktop.portal.GlobalShortcuts";
constexpr const char* shortcutId = "next-up";
constexpr const char* shortcutDescription = "Show the next session that waits";

/// The names of a process's connections differ.
QString connectionName() {
    static std::atomic<unsigned> count = 0;
    return "mimkins-shortcut-" + QString::number(++count);
}

QDBusConnection connectTo(const QString& address, const QString& name) {
    return address.isEmpty() ? QDBusConnection::connectToBus(QDBusConnection::SessionBus, name)
                             : QDBusConnection::connectToBus(address, name);
}

/// One shortcut of the portal, on a connection of its own, so that its end gives the keys back.
class Binding {
public:
    Binding(RunLoop& loop, const QString& address, HotKeyRequest request)
        : loop_(loop), request_(std::move(request)), name_(connectionName()), bus_(connectTo(address, name_)),
          owner_(service, bus_, QDBusServiceWatcher::WatchForOwnerChange) {}

    ~Binding() = default;

    Binding(const Binding&) = delete;
    Binding& operator=(const Binding&) = delete;

    void start() {
        if (!bus_.isConnected()) {
            conclude(HotKeyResult::failed);
            return;
        }
        registerPortalShortcuts();
        signals_.onResponse = [this](const QDBusMessage& message) {
            if (alive_) {
                receive(message);
            }
        };
        signals_.onActivated = [this](const QString& session, const QString& shortcut) {
            press(session, shortcut);
        };
        signals_.onClosed = [this] { lose("the desktop took the shortcut back"); };
        bus_.connect(
            service, portalPath, shortcutsInterface, "Activated", &signals_, SLOT(activate(QDBusMessage))
        );
        QObject::connect(
            &owner_, &QDBusServiceWatcher::serviceOwnerChanged, &owner_,
            [this](const QString&, const QString&, const QString& owner) { ownerChanged(!owner.isEmpty()); }
        );
        introduce();
    }

    /// Gives the keys back. Nothing more is called.
    void end() {
        alive_.reset();
        QDBusConnection::disconnectFromBus(name_);
    }

private:
    using Reply = std::function<void(const QDBusMessage&)>;

    /// Calls the portal. An error counts as its last word.
    void call(const QDBusMessage& message, const Reply& replied) {
        ask(message, [this, replied](const QDBusMessage& reply) {
            if (reply.type() == QDBusMessage::ErrorMessage) {
                log::write(log::Level::standard, "hotkey", reply.errorMessage().toStdString());
                conclude(HotKeyResult::failed);
            } else {
                replied(reply);
            }
        });
    }

    void ask(const QDBusMessage& message, const Reply& replied) {
        auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(message));
        QObject::connect(
            watcher, &QDBusPendingCallWatcher::finished, &signals_,
            [watcher, replied, alive = std::weak_ptr(alive_)] {
                watcher->deleteLater();
                if (alive.lock()) {
                    replied(watcher->reply());
                }
            }
        );
    }

    static QDBusMessage method(const char* interface, const char* name) {
        return QDBusMessage::createMethodCall(service, portalPath, interface, name);
    }

    /// A program outside of any sandbox tells its name itself, where the portal takes one.
    void introduce() {
        auto message = method("org.freedesktop.host.portal.Registry", "Register");
        message << QString("app.mimkins") << QVariantMap();
        ask(message, [this](const QDBusMessage&) { createSession(); });
    }

    /// The path of a request's answer is known before the request, so that no answer is missed.
    QString expect(const QString& token) {
        QString sender = bus_.baseService().mid(1);
        sender.replace('.', '_');
        QString path = QString("%1/request/%2/%3").arg(portalPath, sender, token);
        bus_.connect(
            service, path, "org.freedesktop.portal.Request", "Response", &signals_,
            SLOT(respond(QDBusMessage))
        );
        return path;
    }

    void createSession() {
        const QString token = "mimkins_session";
        sessionRequest_ = expect(token);
        auto message = method(shortcutsInterface, "CreateSession");
        message << QVariantMap{{"handle_token", token}, {"session_handle_token", token}};
        call(message, [](const QDBusMessage&) {});
    }

    void bind() {
        const QString token = "mimkins_binding";
        bindingRequest_ = expect(token);
        const PortalShortcut wish{
            shortcutId,
            {{"description", shortcutDescription}, {"preferred_trigger", portalTrigger(request_.keys)}}};
        auto message = method(shortcutsInterface, "BindShortcuts");
        message << QVariant::fromValue(QDBusObjectPath(session_))
                << QVariant::fromValue(PortalShortcuts{wish}) << QString()
                << QVariantMap{{"handle_token", token}};
        call(message, [](const QDBusMessage&) {});
    }

    /// The answer to a request: a code, 0 for yes, and what came of it.
    void receive(const QDBusMessage& message) {
        const auto arguments = message.arguments();
        if (arguments.size() < 2 || arguments[0].toUInt() != 0) {
            conclude(HotKeyResult::failed);
            return;
        }
        const auto results = qdbus_cast<QVariantMap>(arguments[1]);
        if (message.path() == sessionRequest_) {
            openSession(results.value("session_handle"));
        } else if (message.path() == bindingRequest_) {
            conclude(isBound(results) ? HotKeyResult::registered : HotKeyResult::failed);
        }
    }

    void openSession(const QVariant& handle) {
        session_ =
            handle.canConvert<QDBusObjectPath>() ? handle.value<QDBusObjectPath>().path() : handle.toString();
        if (session_.isEmpty()) {
            conclude(HotKeyResult::failed);
            return;
        }
        bus_.connect(service, session_, "org.freedesktop.portal.Session", "Closed", &signals_, SLOT(close()));
        bind();
    }

    /// Where the portal lists what it bound, ours has to be among it: the user may have left it out.
    static bool isBound(const QVariantMap& results) {
        if (!results.contains("shortcuts")) {
            return true;
        }
        const auto bound = qdbus_cast<PortalShortcuts>(results.value("shortcuts"));
        return std::any_of(bound.begin(), bound.end(), [](const PortalShortcut& shortcut) {
            return shortcut.id == shortcutId;
        });
    }

    void press(const QString& session, const QString& shortcut) {
        if (!alive_ || session != session_ || shortcut != shortcutId) {
            return;
        }
        loop_.post([alive = std::weak_ptr(alive_), this] {
            if (alive.lock()) {
                const auto pressed = request_.pressed; // which may end the binding
                pressed();
            }
        });
    }

    /// A portal that comes back, such as after an update, is asked again for what it gave before.
    void ownerChanged(bool present) {
        if (!present) {
            lose("the desktop's portal has gone");
        } else if (alive_ && lost_) {
            lost_ = false;
            introduce();
        }
    }

    void lose(const char* why) {
        if (!alive_) {
            return;
        }
        session_.clear();
        if (!told_) {
            conclude(HotKeyResult::failed);
        } else if (bound_) {
            bound_ = false;
            lost_ = true;
            log::write(log::Level::error, "hotkey", why);
        }
    }

    void conclude(HotKeyResult result) {
        bound_ = result == HotKeyResult::registered;
        if (std::exchange(told_, true)) {
            if (!bound_) {
                log::write(log::Level::error, "hotkey", "the shortcut can't be had again");
            }
            return;
        }
        const auto told = request_.told; // which may end the binding
        told(result);
    }

    RunLoop& loop_;
    HotKeyRequest request_;
    QString name_;
    QDBusConnection bus_;
    QDBusServiceWatcher owner_;
    PortalSignals signals_;
    QString session_;
    QString sessionRequest_;
    QString bindingRequest_;
    bool told_ = false;
    bool bound_ = false;
    bool lost_ = false; ///< what was bound is gone
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace

Handle PortalHotKeys::registerHotKey(HotKeyRequest request) {
    auto binding = std::make_shared<Binding>(loop_, address_, std::move(request));
    binding->start();
    // The end may come out of one of its own calls, and the rest of it has to outlast that.
    return Handle([binding, &loop = loop_] {
        binding->end();
        loop.post([binding] {});
    });
}

} // namespace mimkins
