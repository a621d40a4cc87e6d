#include "Base/Log.h"

#include <utility>

namespace mimkins::log {

namespace {

std::function<void(const Line&)>& currentSink() {
    static std::function<void(const Line&)> sink;
    return sink;
}

} // namespace

void setSink(std::function<void(const Line&)> sink) {
    currentSink() = std::move(sink);
}

void write(Level level, std::string_view category, std::string_view text) {
    if (const auto& sink = currentSink()) {
        sink(Line{level, category, text});
    }
}

} // namespace mimkins::log
