#include "Platform/Linux/PulseLibrary.h"

#include <dlfcn.h>

namespace mimkins {

namespace {

/// Looks functions up in a library and remembers whether one was missing.
class Lookup {
public:
    explicit Lookup(void* library) : library_(library) {}

    template <typename Function>
    void find(Function& function, const char* name) {
        function = reinterpret_cast<Function>(::dlsym(library_, name));
        complete_ = complete_ && function != nullptr;
    }

    bool complete() const { return complete_; }

private:
    void* library_;
    bool complete_ = true;
};

void findConnection(Lookup& lookup, PulseLibrary& pulse) {
    lookup.find(pulse.mainloopNew, "pa_mainloop_new");
    lookup.find(pulse.mainloopFree, "pa_mainloop_free");
    lookup.find(pulse.mainloopApi, "pa_mainloop_get_api");
    lookup.find(pulse.mainloopPrepare, "pa_mainloop_prepare");
    lookup.find(pulse.mainloopPoll, "pa_mainloop_poll");
    lookup.find(pulse.mainloopDispatch, "pa_mainloop_dispatch");
    lookup.find(pulse.contextNew, "pa_context_new");
    lookup.find(pulse.contextConnect, "pa_context_connect");
    lookup.find(pulse.contextState, "pa_context_get_state");
    lookup.find(pulse.contextDisconnect, "pa_context_disconnect");
    lookup.find(pulse.contextUnref, "pa_context_unref");
}

void findStream(Lookup& lookup, PulseLibrary& pulse) {
    lookup.find(pulse.proplistNew, "pa_proplist_new");
    lookup.find(pulse.proplistSets, "pa_proplist_sets");
    lookup.find(pulse.proplistFree, "pa_proplist_free");
    lookup.find(pulse.streamNew, "pa_stream_new_with_proplist");
    lookup.find(pulse.streamConnect, "pa_stream_connect_playback");
    lookup.find(pulse.streamState, "pa_stream_get_state");
    lookup.find(pulse.streamWrite, "pa_stream_write");
    lookup.find(pulse.streamDrain, "pa_stream_drain");
    lookup.find(pulse.streamDisconnect, "pa_stream_disconnect");
    lookup.find(pulse.streamUnref, "pa_stream_unref");
    lookup.find(pulse.operationState, "pa_operation_get_state");
    lookup.find(pulse.operationUnref, "pa_operation_unref");
}

} // namespace

std::optional<PulseLibrary> loadPulseLibrary(const std::string& name) {
    // It is never closed: its threads' data outlive a use.
    void* library = ::dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        return std::nullopt;
    }
    PulseLibrary pulse{};
    Lookup lookup(library);
    findConnection(lookup, pulse);
    findStream(lookup, pulse);
    return lookup.complete() ? std::optional(pulse) : std::nullopt;
}

} // namespace mimkins
