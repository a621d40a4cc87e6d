#pragma once

#include <pulse/pulseaudio.h>

#include <optional>
#include <string>

namespace mimkins {

/// The functions of the sound server's library that this program uses. The library is loaded when the first
/// sound is played, so that the program runs where it is missing, and needs no memory where nothing is
/// played.
struct PulseLibrary {
    decltype(&pa_mainloop_new) mainloopNew;
    decltype(&pa_mainloop_free) mainloopFree;
    decltype(&pa_mainloop_get_api) mainloopApi;
    decltype(&pa_mainloop_prepare) mainloopPrepare;
    decltype(&pa_mainloop_poll) mainloopPoll;
    decltype(&pa_mainloop_dispatch) mainloopDispatch;
    decltype(&pa_context_new) contextNew;
    decltype(&pa_context_connect) contextConnect;
    decltype(&pa_context_get_state) contextState;
    decltype(&pa_context_disconnect) contextDisconnect;
    decltype(&pa_context_unref) contextUnref;
    decltype(&pa_proplist_new) proplistNew;
    decltype(&pa_proplist_sets) proplistSets;
    decltype(&pa_proplist_free) proplistFree;
    decltype(&pa_stream_new_with_proplist) streamNew;
    decltype(&pa_stream_connect_playback) streamConnect;
    decltype(&pa_stream_get_state) streamState;
    decltype(&pa_stream_write) streamWrite;
    decltype(&pa_stream_drain) streamDrain;
    decltype(&pa_stream_disconnect) streamDisconnect;
    decltype(&pa_stream_unref) streamUnref;
    decltype(&pa_operation_get_state) operationState;
    decltype(&pa_operation_unref) operationUnref;
};

/// Loads the library of this file name, for good. Nothing if it is missing or lacks a function.
std::optional<PulseLibrary> loadPulseLibrary(const std::string& name);

} // namespace mimkins
