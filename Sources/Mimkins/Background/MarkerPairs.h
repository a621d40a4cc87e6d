#pragma once

#include "Background/MarkerSearch.h"

/// What the variants of the marker search share. Each looks for a telling pair of neighbouring bytes out of
/// each marker, chosen to be rare in code, prose and JSON, and compares the whole marker only where one
/// stands.
namespace mimkins::pairs {

/// Where in each marker its telling pair stands: "kg", "k-", "Sc", "nC", "nD", "kS", "lS", "lB".
inline constexpr std::array<std::size_t, markerBytes.size()> offsets{3, 4, 0, 3, 3, 3, 3, 3};

constexpr char first(std::size_t marker) {
    return markerBytes[marker][offsets[marker]];
}

constexpr char second(std::size_t marker) {
    return markerBytes[marker][offsets[marker] + 1];
}

/// For each byte whether it is the second one of a telling pair.
inline constexpr auto isSecond = [] {
    std::array<bool, 256> result{};
    for (std::size_t marker = 0; marker < markerBytes.size(); ++marker) {
        result[static_cast<unsigned char>(second(marker))] = true;
    }
    return result;
}();

/// Appends the marker whose pair stands at `position`, if the rest of it is there too. `position + 1` lies
/// inside the bytes.
inline void confirm(std::string_view bytes, std::size_t position, std::vector<MarkerHit>& hits) {
    const char* pair = bytes.data() + position;
    if (!isSecond[static_cast<unsigned char>(pair[1])]) {
        return;
    }
    for (std::size_t marker = 0; marker < markerBytes.size(); ++marker) {
        if (pair[0] == first(marker) && pair[1] == second(marker) && position >= offsets[marker] &&
            bytes.substr(position - offsets[marker]).starts_with(markerBytes[marker])) {
            hits.push_back({position - offsets[marker], static_cast<Marker>(marker)});
        }
    }
}

/// Examines every position from `begin` on, one by one.
inline void confirmFrom(std::string_view bytes, std::size_t begin, std::vector<MarkerHit>& hits) {
    for (std::size_t position = begin; position + 1 < bytes.size(); ++position) {
        confirm(bytes, position, hits);
    }
}

} // namespace mimkins::pairs
