#include "Platform/Linux/PulsePlayback.h"

#include <utility>

namespace mimkins {

namespace {

/// A server that takes longer has no use for a sound that tells of a moment.
constexpr std::chrono::seconds longestPlayback{4};
/// How long a wait may last before it is asked whether it goes on, in microseconds.
constexpr int patience = 50'000;
/// How far ahead of the loudspeaker the server asks for samples, as a part of a second.
constexpr std::uint32_t aheadPart = 20;
constexpr auto serverDecides = static_cast<std::uint32_t>(-1);

} // namespace

PulsePlayback::PulsePlayback(const PulseLibrary& pulse, std::function<bool()> stopped)
    : pulse_(pulse), stopped_(std::move(stopped)),
      latest_(std::chrono::steady_clock::now() + longestPlayback), loop_(pulse.mainloopNew()) {}

PulsePlayback::~PulsePlayback() {
    if (stream_ != nullptr) {
        pulse_.streamDisconnect(stream_);
        pulse_.streamUnref(stream_);
    }
    if (context_ != nullptr) {
        pulse_.contextDisconnect(context_);
        pulse_.contextUnref(context_);
    }
    if (loop_ != nullptr) {
        pulse_.mainloopFree(loop_);
    }
}

bool PulsePlayback::play(const std::vector<std::int16_t>& samples, std::uint32_t rate) {
    return connect() && openStream(rate) &&
           pulse_.streamWrite(
               stream_, samples.data(), samples.size() * sizeof(std::int16_t), nullptr, 0, PA_SEEK_RELATIVE
           ) == 0 &&
           drain();
}

bool PulsePlayback::connect() {
    if (loop_ == nullptr) {
        return false;
    }
    context_ = pulse_.contextNew(pulse_.mainloopApi(loop_), "Mimkins");
    // Without a server there is silence; to start one would leave a process behind.
    if (context_ == nullptr ||
        pulse_.contextConnect(context_, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) {
        return false;
    }
    return waitUntil([this] { return pulse_.contextState(context_) == PA_CONTEXT_READY; });
}

bool PulsePlayback::openStream(std::uint32_t rate) {
    const pa_sample_spec format{PA_SAMPLE_S16NE, rate, 1};
    pa_proplist* properties = pulse_.proplistNew();
    pulse_.proplistSets(properties, PA_PROP_MEDIA_ROLE, "event");
    stream_ = pulse_.streamNew(context_, "Chirp", &format, nullptr, properties);
    pulse_.proplistFree(properties);
    if (stream_ == nullptr) {
        return false;
    }
    pa_buffer_attr buffer{};
    buffer.maxlength = serverDecides;
    buffer.tlength = rate / aheadPart * static_cast<std::uint32_t>(sizeof(std::int16_t));
    // It begins with the samples, all of which come at once. With 0 it would begin before them and lose some.
    buffer.prebuf = static_cast<std::uint32_t>(sizeof(std::int16_t));
    buffer.minreq = serverDecides;
    buffer.fragsize = serverDecides;
    if (pulse_.streamConnect(stream_, nullptr, &buffer, PA_STREAM_NOFLAGS, nullptr, nullptr) < 0) {
        return false;
    }
    return waitUntil([this] { return pulse_.streamState(stream_) == PA_STREAM_READY; });
}

bool PulsePlayback::drain() {
    pa_operation* draining = pulse_.streamDrain(stream_, nullptr, nullptr);
    if (draining == nullptr) {
        return false;
    }
    const bool drained = waitUntil([&] { return pulse_.operationState(draining) != PA_OPERATION_RUNNING; });
    pulse_.operationUnref(draining);
    return drained;
}

bool PulsePlayback::waitUntil(const std::function<bool()>& condition) {
    while (!condition()) {
        if (stopped_() || std::chrono::steady_clock::now() > latest_ || !serve() ||
            !PA_CONTEXT_IS_GOOD(pulse_.contextState(context_)) ||
            (stream_ != nullptr && !PA_STREAM_IS_GOOD(pulse_.streamState(stream_)))) {
            return false;
        }
    }
    return true;
}

bool PulsePlayback::serve() {
    return pulse_.mainloopPrepare(loop_, patience) >= 0 && pulse_.mainloopPoll(loop_) >= 0 &&
           pulse_.mainloopDispatch(loop_) >= 0;
}

} // namespace mimkins
