#include "Subtask/LineGlance.h"

#include "Subtask/LineIds.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace mimkins {

namespace {

/// Sixteen bytes side by side, in the compiler's own notation.
using Bytes = unsigned char __attribute__((vector_size(16)));

inline Bytes load(const char* from) {
    Bytes bytes;
    std::memcpy(&bytes, from, sizeof bytes);
    return bytes;
}

inline bool any(Bytes bytes) {
    std::array<std::uint64_t, 2> words{};
    std::memcpy(words.data(), &bytes, sizeof bytes);
    return (words[0] | words[1]) != 0;
}

/// Where two or three bytes stand side by side, at sixteen places at once.
class Neighbours {
public:
    static constexpr std::size_t width = sizeof(Bytes);
    /// How many bytes are looked at.
    static constexpr std::size_t reach = width + 2;

    explicit Neighbours(const char* from)
        : first_(load(from)), second_(load(from + 1)), third_(load(from + 2)) {}

    Bytes are(char first, char second) const { return is(first_, first) & is(second_, second); }

    Bytes are(char first, char second, char third) const {
        return is(first_, first) & is(second_, second) & is(third_, third);
    }

private:
    static Bytes is(Bytes bytes, char wanted) {
        return reinterpret_cast<Bytes>(bytes == static_cast<unsigned char>(wanted));
    }

    Bytes first_;
    Bytes second_;
    Bytes third_;
};

constexpr std::string_view idKey = R"("id")";

} // namespace

bool isAnsweredAt(
    std::string_view line, std::size_t place, const std::function<bool(std::string_view id)>& isAnswered
) {
    const std::size_t key = place - 1;
    if (place == 0 || line.substr(key, idKey.size()) != idKey) {
        return true;
    }
    if (key >= 2 && line.substr(key - 2, 2) == ":{") {
        return true;
    }
    const auto rest = line.substr(key + idKey.size());
    if (!rest.starts_with(":\"")) {
        return false;
    }
    const auto end = rest.find('"', 2);
    const auto value = rest.substr(2, end - 2);
    return end != std::string_view::npos && value.find('\\') == std::string_view::npos && isAnswered(value);
}

Glance glanceAtPortably(std::string_view line) {
    if (line.size() < Neighbours::reach) {
        return {true, true};
    }
    const std::size_t last = line.size() - Neighbours::reach;
    Bytes effort{};
    for (std::size_t position = 0;; position = std::min(position + Neighbours::width, last)) {
        const Neighbours bytes(line.data() + position);
        effort |= bytes.are('f', 'f', 'o');
        if (any(bytes.are('\\', 'u') | bytes.are('l', '_'))) {
            return {true, true};
        }
        if (position == last) {
            return {false, any(effort)};
        }
    }
}

bool holdsOnlyCallsPortably(
    std::string_view line, bool isEffortKnown, const std::function<bool(std::string_view id)>& isAnswered
) {
    if (line.size() < Neighbours::reach) {
        return false;
    }
    const std::size_t last = line.size() - Neighbours::reach;
    for (std::size_t position = 0;; position = std::min(position + Neighbours::width, last)) {
        const Neighbours bytes(line.data() + position);
        // Of a character by its number, "tool_result", "SubagentHandback" and "effort". No JSON object ends
        // in any of them.
        const Bytes others = bytes.are('\\', 'u') | bytes.are('l', '_', 'r') | bytes.are('t', 'H');
        const Bytes ids = bytes.are('i', 'd', '"');
        if (any(others) || (!isEffortKnown && any(bytes.are('f', 'f', 'o')))) {
            return false;
        }
        if (any(ids)) {
            for (std::size_t place = position; place < position + Neighbours::width; ++place) {
                if (line[place] == 'i' && !isAnsweredAt(line, place, isAnswered)) {
                    return false;
                }
            }
        }
        if (position == last) {
            return true;
        }
    }
}

} // namespace mimkins
