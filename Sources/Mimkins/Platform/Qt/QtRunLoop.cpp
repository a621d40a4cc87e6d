#include "Platform/Qt/QtRunLoop.h"

#include <QMetaObject>
#include <QPointer>
#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace mimkins {

namespace {

/// Ends a Qt object soon, which is safe inside its own signal, and keeps it silent from now on.
void end(const QPointer<QObject>& object) {
    if (object) {
        object->disconnect();
        object->deleteLater();
    }
}

} // namespace

QtRunLoop::QtRunLoop() : target_(std::make_unique<QObject>()) {}

QtRunLoop::~QtRunLoop() = default;

Date QtRunLoop::now() const {
    using Seconds = std::chrono::duration<double>;
    return {Seconds(std::chrono::system_clock::now().time_since_epoch()).count()};
}

void QtRunLoop::post(std::function<void()> work) {
    QMetaObject::invokeMethod(target_.get(), std::move(work), Qt::QueuedConnection);
}

Handle QtRunLoop::after(double seconds, std::function<void()> work) {
    return start(seconds, true, std::move(work));
}

Handle QtRunLoop::every(double seconds, std::function<void()> work) {
    return start(seconds, false, std::move(work));
}

Handle QtRunLoop::start(double seconds, bool once, std::function<void()> work) {
    constexpr double longest = 2e6; // Qt counts milliseconds in 31 bits
    auto* timer = new QTimer(target_.get());
    timer->setTimerType(seconds < 1 ? Qt::PreciseTimer : Qt::CoarseTimer);
    timer->setInterval(static_cast<int>(std::ceil(std::clamp(seconds, 0.0, longest) * 1000)));
    timer->setSingleShot(once);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, once, work = std::move(work)] {
        // The work may end the handle, and with it this closure; what it needs is copied first.
        const auto running = work;
        if (once) {
            timer->deleteLater();
        }
        running();
    });
    timer->start();
    const QPointer<QTimer> held(timer);
    return Handle([held] {
        if (held) {
            held->stop();
        }
        end(held.data());
    });
}

Handle QtRunLoop::whenReadable(int descriptor, std::function<void()> readable) {
    auto* notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, target_.get());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [readable = std::move(readable)] {
        const auto running = readable;
        running();
    });
    const QPointer<QSocketNotifier> held(notifier);
    return Handle([held] {
        if (held) {
            held->setEnabled(false);
        }
        end(held.data());
    });
}

} // namespace mimkins
