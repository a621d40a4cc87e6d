#include "StopSignals.h"

#include <sys/signalfd.h>

#include <csignal>
#include <utility>

namespace mimkins {

StopSignals::StopSignals(DescriptorWatcher& loop, std::function<void()> stop) {
    sigset_t wanted;
    ::sigemptyset(&wanted);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        ::sigaddset(&wanted, signal);
    }
    signals_ = FileDescriptor(::signalfd(-1, &wanted, SFD_CLOEXEC | SFD_NONBLOCK));
    // A tool that ends before it has read its input must not end the program.
    ::sigaddset(&wanted, SIGPIPE);
    ::sigprocmask(SIG_BLOCK, &wanted, nullptr);
    watch_ = loop.whenReadable(signals_.get(), [this, stop = std::move(stop)] {
        signalfd_siginfo facts{};
        [[maybe_unused]] const auto count = ::read(signals_.get(), &facts, sizeof facts);
        stop();
    });
}

} // namespace mimkins
