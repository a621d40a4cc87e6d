#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// The search that picks the few lines of a transcript that are worth a closer look. All places of all
/// markers are found in a single pass.
namespace mimkins {

/// What a line can hold that makes it worth a look, in the order of `markerBytes`.
enum class Marker : std::uint8_t {
    backgroundId,
    taskId,
    scheduled,
    cronCreate,
    cronDelete,
    taskStop,
    killShell,
    killBash,
};

/// The markers as they stand in a transcript. No marker overlaps with one that follows it, and none holds a
/// newline.
inline constexpr std::array<std::string_view, 8> markerBytes{
    "background with ID", "<task-id>", "Scheduled ", "CronCreate",
    "CronDelete",         "TaskStop",  "KillShell",  "KillBash",
};

/// The length of the longest marker.
inline constexpr std::size_t longestMarker = markerBytes[0].size();

/// A set of markers.
class Markers {
public:
    void insert(Marker marker) { bits_ |= bit(marker); }

    bool contains(Marker marker) const { return (bits_ & bit(marker)) != 0; }

    bool empty() const { return bits_ == 0; }

    friend bool operator==(Markers, Markers) = default;

private:
    static std::uint32_t bit(Marker marker) { return 1U << static_cast<unsigned>(marker); }

    std::uint32_t bits_ = 0;
};

/// A marker at a place.
struct MarkerHit {
    std::size_t position = 0; ///< of the marker's first byte
    Marker marker{};

    friend bool operator==(const MarkerHit&, const MarkerHit&) = default;
};

/// Appends every place of every marker in the bytes, in ascending order of position.
using MarkerSearch = void (*)(std::string_view bytes, std::vector<MarkerHit>& hits);

/// For every processor.
void findMarkersPortably(std::string_view bytes, std::vector<MarkerHit>& hits);

/// For a processor with AVX2; on others it is the portable search.
void findMarkersWithAvx2(std::string_view bytes, std::vector<MarkerHit>& hits);

/// True if this processor can run the search with AVX2.
bool processorHasAvx2();

/// The fastest search that this processor can run.
MarkerSearch fastestMarkerSearch();

} // namespace mimkins
